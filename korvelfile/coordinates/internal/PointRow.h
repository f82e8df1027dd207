#pragma once

#include <string>
#include <string_view>

class DataStream;
class PointDataItem;

namespace internal {

inline constexpr std::string_view kPointKeyword = "Point";

/// The fields of a point's row in object text, y before x, wherever they are kept.
struct PointFields {
  std::string& name;
  double& y;
  double& x;
  double& z;
  std::string& pointCode;
  std::string& specialCode;
  std::string& remark;

  void Stream(DataStream& stream) const;
};

/// A row that has been read and isn't a point yet. Reused, it reads without allocating.
struct PointRow {
  std::string name;
  double y = 0.0;
  double x = 0.0;
  double z = 0.0;
  std::string pointCode;
  std::string specialCode;
  std::string remark;

  /// Reads a whole row; false if its keyword is another one.
  bool Read(std::string_view row);

  /// Reads the fields behind the keyword. The first comma in the remark of a radius ("R") or a "C"
  /// becomes a decimal point.
  void Read(DataStream& stream);
};

/// Appends the whole row of `point` to `out`.
void AppendPointRow(std::string& out, int indent, const PointDataItem& point);

}  // namespace internal
