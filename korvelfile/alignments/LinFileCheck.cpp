#include <algorithm>
#include <cmath>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"

// The check of a line file: the geometry between the starts of two neighbours, and the report.

namespace {

// From here on an element is reported: gon and metres.
constexpr double kKinkLimit = 0.1;
constexpr double kBearingLimit = 0.001;
constexpr double kLengthLimit = 0.001;

// A clothoid is accepted whose foot lies within the first of its end, and turned until it comes
// within the second of the point to be reached; metres.
constexpr double kFootLimit = 0.5;
constexpr double kReachLimit = 1e-6;
constexpr double kFootTolerance = 1e-5;
constexpr int kMaxPasses = 20;

// What a pair of elements gives; it keeps the values of the pair before where one isn't found.
struct Pair {
  double startBearing = 0.0;  // gon
  double endBearing = 0.0;    // gon
  double length = 0.0;
  double parameter = 0.0;
  int status = TLinCtrl::kFound;
};

Vector StartOf(const TLin& element) { return {element.GetX(), element.GetY()}; }

double Normalized(double angle) { return NormalizeAngle(angle, kTwoPi, 0.0); }

// NaN exceeds too: what can't be compared shall be seen.
bool Exceeds(double difference, double limit) { return !(std::fabs(difference) <= limit); }

// Whether all numbers are finite that the geometry is worked out from.
bool IsFinite(const TLin& element, const Vector& chord) {
  if (!std::isfinite(chord.GetLength()) || !std::isfinite(element.GetRadius())) return false;
  if (element.GetParameter() == 0.0) return true;
  return std::isfinite(element.GetParameter()) && std::isfinite(element.GetERadius()) &&
         std::isfinite(element.GetBearing());
}

int StraightGeometry(const Vector& chord, Pair& pair) {
  pair.length = chord.GetLength();
  pair.startBearing = pair.endBearing = BearingToGon(PolarVector(chord).angle);
  pair.parameter = 0.0;
  return TLinCtrl::kFound;
}

// Bearing of the chord in radians, from +Y towards +X.
double ChordBearing(const Vector& chord, double length) {
  const double d = length == 0.0 ? 0.0 : std::asin(std::clamp(chord.x / length, -1.0, 1.0));
  return chord.y < 0.0 ? kPi - d : d + kTwoPi;
}

int ArcGeometry(double radius, const Vector& chord, Pair& pair) {
  const double c = chord.GetLength();
  const double size = std::fabs(radius);
  pair.length = c;
  if (c > 2.0 * size) return TLinCtrl::kChordTooLong;
  const double share = c * 0.5 / size;
  const double start = Normalized(std::copysign(1.0, radius) * (std::acos(share) - kHalfPi) +
                                  ChordBearing(chord, c));
  pair.length = size * 2.0 * std::asin(share);
  pair.parameter = 0.0;
  pair.startBearing = BearingToGon(kHalfPi - start);
  pair.endBearing = BearingToGon(kHalfPi - (pair.length / radius + start));
  return TLinCtrl::kFound;
}

// A clothoid of given radii that is turned about its start, and then lengthened too, until it
// passes through the start of the next element.
class ClothoidFit {
 public:
  ClothoidFit(const TLin& first, const TLin& second)
      : first_(first),
        start_(StartOf(first)),
        target_(StartOf(second)),
        chordAngle_(PolarVector(target_ - start_).angle),
        angle_(Normalized(GonToBearing(first.GetBearing()))) {}

  int Fit(Pair& pair) {
    pair.parameter = first_.GetParameter();
    const int status = Reach(pair);
    pair.startBearing = BearingToGon(angle_);
    if (status != TLinCtrl::kEqualRadii) pair.endBearing = BearingToGon(endDirection_);
    return status;
  }

 private:
  int Reach(Pair& pair) {
    SetWithParameter(pair.parameter);
    if (first_.GetRadius() == first_.GetERadius()) return TLinCtrl::kEqualRadii;
    pair.length = clothoid_.CalcArcLength();
    TurnTowardsTarget(PointAt(pair.length));
    SetWithParameter(pair.parameter);
    Vector p = PointAt(pair.length);
    double foot = 0.0;
    if (!FindFoot(foot) || std::fabs(foot - pair.length) > kFootLimit)
      return TLinCtrl::kCannotBeReached;
    pair.length = foot;
    pair.parameter = clothoid_.GetParameter();
    for (int pass = 1; p.GetDistance(target_) > kReachLimit; ++pass) {
      clothoid_.SetWithLength(start_, angle_, pair.length, first_.GetRadius(), first_.GetERadius());
      if (clothoid_.CalcArcLength() == 0.0) return TLinCtrl::kCannotBeReached;
      TurnTowardsTarget(p);
      pair.parameter = clothoid_.GetParameter();
      SetWithParameter(pair.parameter);
      if (!FindFoot(pair.length)) return TLinCtrl::kCannotBeReached;
      p = PointAt(pair.length);
      if (pass == kMaxPasses) return TLinCtrl::kCannotBeReached;
    }
    return TLinCtrl::kFound;
  }

  void SetWithParameter(double parameter) {
    clothoid_.SetWithParameter(start_, angle_, parameter, first_.GetRadius(), first_.GetERadius());
  }

  void TurnTowardsTarget(const Vector& reached) {
    angle_ = Normalized(angle_ - (Normalized(PolarVector(reached - start_).angle) - chordAngle_));
  }

  Vector PointAt(double length) { return clothoid_.TangentPoint(&endDirection_, nullptr, length); }

  bool FindFoot(double& length) const {
    Vector foot;
    if (!clothoid_.OrthoOut(target_, foot, kFootTolerance)) return false;
    length = foot.x;
    return true;
  }

  const TLin& first_;
  Vector start_;
  Vector target_;
  double chordAngle_;
  double angle_;  // mathematical, of the tangent at the start
  double endDirection_ = 0.0;
  Clothoid clothoid_;
};

int PairGeometry(const TLin& first, const TLin& second, Pair& pair) {
  const Vector chord = StartOf(second) - StartOf(first);
  if (!IsFinite(first, chord)) return TLinCtrl::kCannotBeReached;
  if (first.GetParameter() != 0.0) return ClothoidFit(first, second).Fit(pair);
  if (first.GetRadius() != 0.0) return ArcGeometry(first.GetRadius(), chord, pair);
  return StraightGeometry(chord, pair);
}

// The report line of an element between the pairs before and behind it. The first element has no
// kink; the last has no pair behind it and only gets the bearing with which the one before ends.
TLinCtrl Compare(const TLin& stored, const Pair& before, const Pair& behind, bool isFirst,
                 bool isLast) {
  TLinCtrl line;
  TLin corrected = stored;
  corrected.SetElemNo({});
  if (isLast) {
    corrected.SetBearing(before.endBearing);
    line.SetComment(before.status);
  } else {
    line.SetdLength(behind.length - stored.GetLength());
    line.SetdBearing(behind.startBearing - stored.GetBearing());
    line.SetdTP(isFirst ? 0.0 : before.endBearing - behind.startBearing);
    line.SetComment(behind.status);
    corrected.SetBearing(behind.startBearing);
    corrected.SetLength(behind.length);
    corrected.SetParameter(std::fabs(behind.parameter));
  }
  if (corrected.GetParameter() == 0.0 && corrected.GetRadius() != 0.0)
    corrected.SetERadius(corrected.GetRadius());
  line.SetElement(corrected);
  return line;
}

bool IsFault(const TLinCtrl& line, double chainageDifference) {
  return Exceeds(line.GetmdTP(), kKinkLimit) || Exceeds(line.GetdLength(), kLengthLimit) ||
         Exceeds(line.GetdBearing(), kBearingLimit) || Exceeds(chainageDifference, kLengthLimit);
}

}  // namespace

void LinFile::berBeringBlen(const TLin& first, const TLin& second, double& startBearing,
                            double& endBearing, double& length, double& parameter,
                            int& status) const {
  Pair pair{startBearing, endBearing, length, parameter, status};
  status = PairGeometry(first, second, pair);
  startBearing = pair.startBearing;
  endBearing = pair.endBearing;
  length = pair.length;
  parameter = pair.parameter;
}

// The pair behind one element is the pair before the next one, carried values included, so that
// each pair is worked out once.
void LinFile::LinDataCheck(std::vector<TLinCtrl>& report) const {
  const std::size_t count = GetTotalElements();
  if (count < 2) return;
  double chainage = GetStartSection();
  Pair pair;
  TLin next = GetAt(0);
  for (std::size_t i = 0; i < count; ++i) {
    const bool isLast = i + 1 == count;
    const TLin element = next;
    const Pair before = pair;
    if (!isLast) {
      next = GetAt(i + 1);
      berBeringBlen(element, next, pair.startBearing, pair.endBearing, pair.length, pair.parameter,
                    pair.status);
    }
    TLinCtrl line = Compare(element, before, pair, i == 0, isLast);
    line.GetElement().SetSection(chainage);
    if (IsFault(line, chainage - element.GetSection())) {
      line.SetElemNo(element.GetElemNo());
      line.SetPos(static_cast<int>(i));
      report.push_back(line);
    }
    chainage += pair.length;
  }
}

void LinFile::LinDataCorrect(std::vector<TLinCtrl>& report) {
  for (const TLinCtrl& line : report) {
    const TLin& element = line.GetElement();
    bool insert = false;
    SetElement(static_cast<std::size_t>(line.GetPos()), line.GetElemNo(), element.GetY(),
               element.GetX(), element.GetSection(), element.GetRadius(), element.GetBearing(),
               element.GetParameter(), element.GetERadius(), element.GetLength(), insert);
  }
}
