#pragma once

class DataItemListObject;
class GeoFileTextInputStream;

namespace internal {

/// Reads the rows of a `.plm` file into a list.
///
/// All operations give false for rows of a wrong form, with what was read so far left in place and
/// the stream on the row at fault. A file that ends within a block of records ends that block.
class PlmReader {
 public:
  /// @param in on the first line; must outlive the reader
  explicit PlmReader(GeoFileTextInputStream& in) : in_(in) {}

  /// Appends the whole content: header, stations, precision, attribute list.
  bool Read(DataItemListObject& file);

 private:
  bool ReadStations(DataItemListObject& file);
  bool ReadRecordBlock(DataItemListObject& owner, int depth);
  bool ReadRecordList(DataItemListObject& owner, int depth);
  bool ReadRecord(DataItemListObject& owner);
  bool ReadLine(DataItemListObject& owner, int depth);

  GeoFileTextInputStream& in_;
  int version_ = 0;  ///< of the file
};

}  // namespace internal
