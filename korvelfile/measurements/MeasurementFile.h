#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"

class GeoAttrib;
class PrecisionDataItem;

/// The collector of polar measurements, in a `.plm` file: observations only, no coordinates.
///
/// Read, its list holds the `FileHeader`, the stations in file order, the `PrecisionDataItem` and
/// the file's `GeoAttribList`. Started in memory or created it holds the header, an undefined
/// precision and an empty attribute list. Since it holds no points its extent is empty.
///
/// Reading gives 0, -9 if the file can't be opened or has a wrong form, -10 if memory runs out.
/// Writing gives 0, -9 if the file can't be opened, the path has no extension, or the list lacks
/// what the reader asks for, -1 if the new file can't be written or put in place. Then the old file
/// stays as it was, but for a list that lacks nothing but its attribute list: it is written, with
/// an empty one, and the result is -9. Lines deeper within each other than 256 are neither read nor
/// written. A path that ends in ".inm" or ".bkp" gets two header lines and nothing else; there is
/// no reader for that form.
///
/// Changes of items and the operations here don't flag the file dirty: that is the caller's.
class KORVELFILE_EXPORT MeasurementFile : public CoordinateFileInterface,
                                          public GraphicsObjectInterface {
 public:
  /// Names the file; null stands for "nofile.plm".
  void ChooseFile(const char* path);

  const char* GetFilePath() const { return path_.c_str(); }
  /// The path without its folders; only "/" separates them.
  const char* GetFileName() const { return fileName_.c_str(); }

  /// The first precision of the file, or null.
  PrecisionDataItem* GetPrecision();

  /// Sets an info of the header, which must be the first item; without it nothing happens.
  void AddFileInfo(const std::string& key, const std::string& value);

  /// Adds a copy of `attribute` to the file's attribute list, if it has one.
  void AddFileAttribute(const GeoAttrib& attribute);

  /// `StationDataItem::GenerateLines` on every station.
  void GenerateLines();

  void* GetGraphicsObject() override { return this; }
  int GetProxyType() override { return 4; }
  bool IsForReadOnly() override { return false; }

 private:
  int InitCollectorFileNoDisk() override;
  int ReadCollectorFile() override;
  int WriteCollectorFile() override;
  int CreateCollectorFile() override;

  int ReadPlmFile();
  int WritePlmFile();
  int WriteInmFile();
  int Failure(const char* message) const;

  std::string path_;
  std::string fileName_;
};
