// Checks of alignments of 25,000, 50,000 and 100,000 elements: straights, entry clothoids, arcs and
// exit clothoids in turn.
//
// Floor: the same check of the smallest of them, once for each time that it goes into the larger
// one. A ratio near 1 is linear.

#include <cstddef>
#include <string>
#include <vector>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "support/Ratio.h"

namespace {

constexpr std::size_t kElements = 25000;
constexpr int kRounds = 3;
constexpr double kBar = 1.3;

// The next element: a straight of 100 m, or a piece of a curve to the right and left in turn.
TLin NextElement(std::size_t i) {
  constexpr double kRadius = 300.0;
  constexpr double kParameter = 150.0;
  const double radius = i % 8 < 4 ? kRadius : -kRadius;
  TLin element;
  element.SetElemNo(std::to_string(i));
  element.SetLength(i % 2 == 0 ? 100.0 : kParameter * kParameter / kRadius);
  if (i % 4 == 2) element.SetRadius(radius);
  if (i % 4 == 3) element.SetRadius(radius);
  if (i % 4 == 1) element.SetERadius(radius);
  if (i % 2 == 1) element.SetParameter(kParameter);
  return element;
}

// An alignment whose figures agree but for the rounding of coordinates to 0.01 mm.
LinFile MakeLine(std::size_t count) {
  LinFile line;
  Vector start(674000.0, 6580000.0);
  double bearing = 0.0;
  double section = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const TLin e = NextElement(i);
    bool insert = false;
    line.SetElement(i, e.GetElemNo(), start.y, start.x, section, e.GetRadius(), bearing,
                    e.GetParameter(), e.GetERadius(), e.GetLength(), insert);
    start = line.FindEndPosOfElement(static_cast<int>(i));
    section += e.GetLength();
    const double curvature = (e.GetRadius() == 0.0 ? 0.0 : 1.0 / e.GetRadius()) +
                             (e.GetERadius() == 0.0 ? 0.0 : 1.0 / e.GetERadius());
    const double share = i % 4 == 2 ? 1.0 : 0.5;
    bearing += share * curvature * e.GetLength() / kRadiansPerGon;
  }
  return line;
}

std::size_t Check(const LinFile& line) {
  std::vector<TLinCtrl> report;
  line.LinDataCheck(report);
  return report.size();
}

void MeasureLines() {
  const LinFile small = MakeLine(kElements);
  for (const std::size_t times : {1U, 2U, 4U}) {
    const LinFile line = MakeLine(times * kElements);
    PrintRatio(
        "check of a line of " + std::to_string(times * kElements) + " elements, " +
            std::to_string(Check(line)) + " reported",
        kBar, kRounds,
        [&] {
          for (std::size_t i = 0; i < times; ++i) Keep(Check(small));
        },
        [&] { Keep(Check(line)); });
  }
}

}  // namespace

int main() { MeasureLines(); }
