// Checks of alignments of 25,000, 50,000 and 100,000 elements: straights, entry clothoids, arcs and
// exit clothoids in turn; grades, sags and crests in turn.
//
// Floor: the same check of the smallest of them, once for each time that it goes into the larger
// one. A ratio near 1 is linear.

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/PrfFile.h"
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

// A profile of grades of 2 % up and down, with a sag or a crest of 100 m between any two.
PrfFile MakeProfile(std::size_t count) {
  constexpr double kLength = 100.0;
  PrfFile profile;
  double z = 0.0;
  for (int i = 0; i < static_cast<int>(count); ++i) {
    const double slope = i % 4 < 2 ? 0.02 : -0.02;
    const double radius =
        i % 2 == 0 ? 0.0 : std::copysign(0.5 * kLength / 0.019996000999800, -slope);
    bool insert = false;
    profile.SetElement(i, std::to_string(i), kLength * i, z, slope, radius, kLength, 0.0, 0.0,
                       insert);
    if (radius == 0.0) z += kLength * slope;
  }
  return profile;
}

std::size_t Check(const LinFile& line) {
  std::vector<TLinCtrl> report;
  line.LinDataCheck(report);
  return report.size();
}

std::size_t Check(const PrfFile& profile) {
  std::vector<TPrfCtrl> report;
  profile.PrfDataCheck(report);
  return report.size();
}

template <class File>
void Measure(const std::string& what, File (*make)(std::size_t)) {
  const File small = make(kElements);
  for (const std::size_t times : {1U, 2U, 4U}) {
    const File file = make(times * kElements);
    PrintRatio(
        "check of a " + what + " of " + std::to_string(times * kElements) + " elements, " +
            std::to_string(Check(file)) + " reported",
        kBar, kRounds,
        [&] {
          for (std::size_t i = 0; i < times; ++i) Keep(Check(small));
        },
        [&] { Keep(Check(file)); });
  }
}

}  // namespace

int main() {
  Measure("line", MakeLine);
  Measure("profile", MakeProfile);
}
