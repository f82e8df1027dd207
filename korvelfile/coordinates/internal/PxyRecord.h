#pragma once

#include <cstddef>
#include <string_view>

#include "korvelfile/data/FixedColumns.h"

class GeoFile;

namespace internal {

/// One point line of a `.pxy` file, y before x, in metres.
struct PxyRecord {
  std::string_view name = {};
  double y = 0.0;
  double x = 0.0;
  double z = 0.0;
  std::string_view pointCode = {};
  std::string_view specialCode = {};
  std::string_view remark = {};
};

/// The columns of the point line, for reading and writing.
template <class Codec, class Record>
void StreamPxyColumns(Codec& codec, Record& record) {
  codec.Stream(record.name, Column{0, 12});
  codec.Stream(record.y, Column{14, 12, 4});
  codec.Stream(record.x, Column{26, 12, 4});
  codec.Stream(record.z, Column{38, 12, 4});
  codec.Stream(record.pointCode, Column{51, 8});
  codec.Stream(record.specialCode, Column{60, 2});
  codec.Stream(record.remark, Column{62, 12});
}

/// Closes both the point lines and the header lines.
inline constexpr std::string_view kPxyLineEnd = ",\r\n";
inline constexpr int kPxyEndOffset = 74;

/// Length of a line with its ending, in bytes, as long as its numbers keep to their columns.
inline constexpr std::size_t kPxyLineSize = 77;

/// Most that a point line can take, with three numbers of over 300 digits.
inline constexpr std::size_t kPxyLongestLine = 1100;

/// Writes the line of `record` and gives its end; `out` takes `kPxyLongestLine` bytes.
inline char* PutPxyRecord(char* out, const PxyRecord& record) {
  ColumnWriter writer(out);
  StreamPxyColumns(writer, record);
  writer.Close(kPxyLineEnd, kPxyEndOffset);
  return writer.End();
}

/// Writes the two header lines, with today's local date.
void WritePxyHeader(GeoFile& file);

}  // namespace internal
