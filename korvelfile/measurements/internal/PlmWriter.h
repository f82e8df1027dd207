#pragma once

#include <string>

class DataItemInterface;
class DataItemListObject;
class GeoFile;
class RecordDataItem;
class Streamable;

namespace internal {

/// Writes the rows of a `.plm` file. A failed write shows when the file is closed.
class PlmWriter {
 public:
  /// @param file open to be replaced; must outlive the writer
  explicit PlmWriter(GeoFile& file) : file_(file) {}

  /// Writes the stations of `list` with all that was measured from them.
  /// @return false if lines lie within each other deeper than the reader would take
  bool WriteStations(const DataItemListObject& list);

  /// Writes the first precision of `list`; false if there is none.
  bool WritePrecision(const DataItemListObject& list);

  /// Writes the attribute list of the file, an empty one where it has none.
  /// @return false if it has none
  bool WriteFileAttributes(DataItemListObject& list);

 private:
  bool WriteRecordBlock(DataItemListObject& owner, int depth);
  bool WriteRecords(const DataItemListObject& owner, int depth);
  bool WriteItem(DataItemInterface& item, int depth);
  void WriteRecord(RecordDataItem& record, int indent);
  void WriteRow(int indent, const char* keyword, Streamable& object);
  void WriteText(int indent, const char* text);

  GeoFile& file_;
  std::string row_;
};

}  // namespace internal
