#pragma once

#include <functional>
#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/CoordinatesKeeper.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"

class FileHeader;
class GeoFileTextInputStream;
class LineDataItem;

/// A coordinate file: `.pxy` and `.tun` in fixed columns, `.geo` and `.llc` in object text, told by
/// the extension, whatever its case.
///
/// Loaded, its list holds a `FileHeader`, free points, lines with their points, and a
/// `GeoAttribList` for the file. Read-only, points and lines go to the compact store of
/// `GetDataHolder` instead, but for `.llc`; such a file isn't written.
///
/// Results of its file operations: 0; -9 for a file that can't be opened, has a wrong form or an
/// unknown extension; -10 without memory.
class KORVELFILE_EXPORT PxyCoordinateFile : public CoordinateFileInterface,
                                            public GraphicsObjectInterface {
 public:
  explicit PxyCoordinateFile(bool readOnly);
  ~PxyCoordinateFile() override;

  /// Names the file; null stands for "nofile.pxy".
  void ChooseFile(const char* path);

  const char* GetPxyFile() const { return path_.c_str(); }

  /// The path without its folders; only "/" separates them.
  const char* GetFileName() const { return fileName_.c_str(); }

  /// The first item as a header, or null if it is none. The list must not be empty.
  FileHeader* GetFileHeader() const;

  /// Appends a new line of this name; the second argument isn't used.
  LineDataItem* CreateLine(const std::string& name, int unused);

  /// The compact store of a file read for read-only work; else null.
  std::shared_ptr<CoordinatesKeeper> GetDataHolder() const { return dataHolder_; }

  /// Sets the links of all points and lines to null.
  void RemoveLinks();

  void* GetGraphicsObject() override { return this; }
  int GetProxyType() override;
  bool IsForReadOnly() override { return isReadOnly_; }

  /// Writes one line of a `.pxy` file, with its line ending and a terminator.
  /// @param buffer receives at most `size` bytes; more are cut
  /// @param y, x, z metres, in the order of the file
  static void FormatPxyRecord(char* buffer, int size, const char* name, double y, double x,
                              double z, const char* pointCode, const char* specialCode,
                              const char* remark);

 private:
  int InitCollectorFileNoDisk() override;
  int ReadCollectorFile() override;
  int WriteCollectorFile() override;
  int CreateCollectorFile() override;

  void InitDataItems();
  int ReadByExtension(const std::string& extension);
  int ReadPxyFile(bool isPxy);
  int ReadPxyFileSimple(bool isPxy);
  int WritePxyFile();
  int ReadGeo(const std::function<bool(GeoFileTextInputStream&)>& read);
  int ReadGeoFile();
  int ReadGeoFileSimple();
  int WriteGeoFile();

  std::string path_;
  std::string fileName_;
  bool isLlc_ = false;
  bool isReadOnly_;
  std::shared_ptr<CoordinatesKeeper> dataHolder_;
};
