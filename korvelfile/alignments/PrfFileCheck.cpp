#include <algorithm>
#include <cmath>

#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Vector.h"

// The check of a profile: the geometry between the points of two neighbours, and the report.

namespace {

// From here on an element is reported: metres and ratios.
constexpr double kLengthLimit = 0.001;
constexpr double kSlopeLimit = 0.001;
constexpr double kBreakLimit = 0.1;

// What a pair of elements gives; it keeps the values of the pair before where one isn't found.
struct Pair {
  double startSlope = 0.0;
  double endSlope = 0.0;
  double length = 0.0;
  int status = TPrfCtrl::kFound;
};

// NaN exceeds too: what can't be compared shall be seen.
bool Exceeds(double difference, double limit) { return !(std::fabs(difference) <= limit); }

bool IsFault(const TPrfCtrl& line) {
  return Exceeds(line.GetdLength(), kLengthLimit) || Exceeds(line.GetdSlope(), kSlopeLimit) ||
         Exceeds(line.GetmdTP(), kBreakLimit);
}

// Mathematical angle of a chord of length `c`, -pi/2 to 2 pi.
double ChordAngle(const Vector& chord, double c) {
  if (c == 0.0) return 0.0;
  const double x = std::asin(std::clamp(chord.y / c, -1.0, 1.0));
  if (chord.x < 0.0) return kPi - x;
  return chord.y < 0.0 ? x + kTwoPi : x;
}

TPrfCtrl Compare(const TPrf& stored, const Pair& before, const Pair& behind, bool isFirst) {
  TPrfCtrl line;
  line.SetdLength(behind.length - stored.GetLength());
  line.SetdSlope(behind.startSlope - stored.GetSlope());
  line.SetdTP(isFirst ? 0.0 : before.endSlope - behind.startSlope);
  line.SetComment(behind.status);
  TPrf corrected = stored;
  corrected.SetSlope(behind.startSlope);
  corrected.SetLength(behind.length);
  line.SetElement(corrected);
  return line;
}

}  // namespace

void PrfFile::CalcLenSlope(TPrf first, TPrf second, double& startSlope, double& endSlope,
                           double& length, int& status) const {
  const Vector chord(second.GetSection() - first.GetSection(), second.GetZ() - first.GetZ());
  const double c = chord.GetLength();
  const double radius = first.GetRadius();
  status = TPrfCtrl::kNoCurve;
  if (!std::isfinite(c) || !std::isfinite(radius)) return;
  if (radius != 0.0 && c > 2.0 * std::fabs(radius)) return;

  // The chord of a circle turns away from both tangents by half the central angle, whose cosine is
  // 1 - c^2 / (2 R^2); as a sine it keeps the digits of flat curves.
  const double half = radius == 0.0 ? 0.0 : std::asin(0.5 * c / radius);
  const double start = ChordAngle(chord, c) - half;
  const double end = start + 2.0 * half;
  length = std::fabs(chord.x);
  startSlope = std::tan(start);
  if (radius != 0.0 && std::fabs(std::fmod(end, kPi)) == kHalfPi) return;
  endSlope = std::tan(end);
  status = TPrfCtrl::kFound;
}

// The pair behind one element is the pair before the next one, carried values included, so that
// each pair is worked out once. The last element has no pair behind it and nothing to compare.
void PrfFile::PrfDataCheck(std::vector<TPrfCtrl>& report) const {
  Pair pair;
  for (int i = 0; i + 1 < section_.GetCount(); ++i) {
    const TPrf element = GetAt(i);
    const Pair before = pair;
    CalcLenSlope(element, GetAt(i + 1), pair.startSlope, pair.endSlope, pair.length, pair.status);
    TPrfCtrl line = Compare(element, before, pair, i == 0);
    if (!IsFault(line)) continue;
    line.SetElemNo(elemNo_[i]);
    line.SetPos(i);
    report.push_back(line);
  }
}

void PrfFile::PrfDataCorrect(std::vector<TPrfCtrl>& report) {
  for (const TPrfCtrl& line : report) {
    const TPrf& element = line.GetElement();
    bool insert = false;
    SetElement(line.GetPos(), line.GetElemNo(), element.GetSection(), element.GetZ(),
               element.GetSlope(), element.GetRadius(), element.GetLength(), element.GetOffsL(),
               element.GetOffsR(), insert);
  }
}
