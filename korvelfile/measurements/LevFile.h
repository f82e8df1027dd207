#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataCollectionInterface.h"

class GeoFileTextInputStream;

/// The collector of a levelling job: a flat list of `LevRecordItem`, one for each reading, in a
/// file with the extension "lvt".
///
/// Reading gives 0; -9 if the file can't be opened; -5 for a bad row; -10 if memory runs out.
/// Writing gives 0; -9, with nothing written, for another extension, whatever the case of its
/// letters; -1 if the file can't be written, and the old one stays.
class KORVELFILE_EXPORT LevFile : public DataCollectionInterface {
 public:
  /// Names the file; the path goes to the system as UTF-8.
  void SetFile(const std::wstring& path);
  std::wstring GetFile() const;

 private:
  int InitCollectorFileNoDisk() override;
  int ReadCollectorFile() override;
  int WriteCollectorFile() override;
  int CreateCollectorFile() override;
  void FreeCollector() override;

  int ReadLevFile();
  int ReadRecords(GeoFileTextInputStream& in);
  int WriteLevFile();

  std::string path_;
};
