#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/AttributeFileInterface.h"

class GeoFile;
class GeoFileTextInputStream;

/// The `.atr` file: a catalogue of attribute definitions for applications.
///
/// Loaded, its list holds a `FileHeader`, then the contexts. Results are 0; -9 for a file that
/// can't be opened or has a wrong form; -10 without memory.
class KORVELFILE_EXPORT AttributeFile : public AttributeFileInterface {
 public:
  /// Names the file; null stands for "nofile.atr".
  void ChooseFile(const char* path);

  /// The path without its folders; only "/" separates them.
  const char* GetFileName() const { return fileName_.c_str(); }
  const char* GetFilePath() const { return path_.c_str(); }

 private:
  int InitCollectorFileNoDisk() override;
  int ReadCollectorFile() override;
  int WriteCollectorFile() override;
  int CreateCollectorFile() override;
  void InitDataItems();
  int ReadAtrFile();
  bool ReadContent(GeoFileTextInputStream& in);
  void WriteContexts(GeoFile& file);

  std::string path_;
  std::string fileName_;
};
