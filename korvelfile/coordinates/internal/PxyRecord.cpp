#include "korvelfile/coordinates/internal/PxyRecord.h"

#include <array>

#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Time.h"

namespace {

using HeaderLine = std::array<char, internal::kPxyLineSize>;

HeaderLine FirstHeaderLine() {
  const GeoDate today = _Time::GetDateLocal();
  HeaderLine line;
  ColumnWriter columns(line.data());
  columns.Stream("XYZ-COORD-FILE", Column{0, 14});
  columns.Stream(",", Column{16, 1});
  columns.Stream("V1.00", Column{17, 5});
  columns.Stream(",", Column{22, 1});
  columns.Stream(SF::dformat("%i-%02i-%02i", today.year, today.month, today.day), Column{23, 10});
  columns.Close(internal::kPxyLineEnd, internal::kPxyEndOffset);
  return line;
}

HeaderLine SecondHeaderLine() {
  HeaderLine line;
  ColumnWriter columns(line.data());
  columns.Stream(",", Column{40, 1});
  columns.Close(internal::kPxyLineEnd, internal::kPxyEndOffset);
  return line;
}

}  // namespace

void internal::WritePxyHeader(GeoFile& file) {
  for (const HeaderLine& line : {FirstHeaderLine(), SecondHeaderLine()}) {
    _FileIO::WriteFile(file, line.data(), line.size());
  }
}
