#include "korvelfile/outside/model/internal/ClothoidShape.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "korvelfile/outside/model/LineException.h"

// A foot is a place where the point lies neither ahead nor behind. Seen from the place at s, let it
// lie f ahead and r to the right; with the curvature k, positive to the right,
//   f' = k r - 1,  r' = -k f,  f'' = k' r - k^2 f.
// Where the distance is least, f falls through 0. The curve is halved until f is known to fall all
// over a piece, or to have no such place there: on nearly every road the whole curve is one piece,
// and a look at its two ends is enough to tell whether it has the foot.

namespace Model {

namespace {

// Pieces aren't halved below this share of the curve.
constexpr double kLeastShare = 1.0 / 4096.0;
// Beyond a last step that is shorter, metres, the next one would change nothing.
constexpr double kLastStep = 1e-6;
constexpr int kMaxSteps = 100;

// A point as seen from a place on the curve.
struct Sight {
  double length;  // of the place, from the start
  double ahead;
  double right;
};

class FootSearch {
 public:
  FootSearch(const Clothoid& curve, double curvature, double rate, const Vector& point)
      : curve_(curve), curvature_(curvature), rate_(rate), point_(point) {}

  Sight SeenFrom(double length, const Vector& place, const Vector& along) const {
    const Vector from = point_ - place;
    return {length, along.GetScalarProduct(from), from.GetCrossProduct(along)};
  }

  // The same point, seen from a little farther along.
  Sight Moved(const Sight& sight, double step) const {
    return {sight.length + step, sight.ahead - step * Fall(sight),
            sight.right - step * Curvature(sight.length) * sight.ahead};
  }

  void Search(const Sight& a, const Sight& b, double leastWidth) {
    const double width = b.length - a.length;
    const double distance = std::hypot(a.ahead, a.right);
    if (distance - width > distance_) return;
    const Range slope = SlopeRange(a, b, distance + width);
    if (slope.low > 0.0) return;
    if (std::fabs(a.ahead) > width * std::max(-slope.low, slope.high)) return;
    if (slope.high < 0.0 || width <= leastWidth) return Solve(a, b);
    const Sight middle = SeenFrom(0.5 * (a.length + b.length));
    Search(a, middle, leastWidth);
    Search(middle, b, leastWidth);
  }

  bool Get(Foot& foot) const {
    foot = foot_;
    return std::isfinite(distance_);
  }

 private:
  struct Range {
    double low;
    double high;
  };

  double Curvature(double length) const { return curvature_ + rate_ * length; }

  // -f'
  double Fall(const Sight& sight) const { return 1.0 - Curvature(sight.length) * sight.right; }

  Sight SeenFrom(double length) const {
    double direction = 0.0;
    const Vector place = curve_.TangentPoint(&direction, nullptr, length);
    return SeenFrom(length, place, {std::cos(direction), std::sin(direction)});
  }

  // What f' may be between two places, the point being no farther than `farthest`: r changes by no
  // more than that times the turn.
  Range SlopeRange(const Sight& a, const Sight& b, double farthest) const {
    const double k1 = Curvature(a.length);
    const double k2 = Curvature(b.length);
    const double turn = (b.length - a.length) * std::max(std::fabs(k1), std::fabs(k2));
    const double change = std::min(turn, 2.0) * farthest;
    const auto [low, high] = std::minmax({k1 * (a.right - change), k1 * (a.right + change),
                                          k2 * (a.right - change), k2 * (a.right + change)});
    return {low - 1.0, high - 1.0};
  }

  // Steps of third order; the bracket is halved where one leaves it, or where f doesn't fall.
  void Solve(const Sight& a, const Sight& b) {
    if (!(a.ahead >= 0.0 && b.ahead <= 0.0)) return;
    double lower = a.length;
    double upper = b.length;
    const double drop = a.ahead - b.ahead;
    double length = drop > 0.0 ? lower + (upper - lower) * (a.ahead / drop) : lower;
    for (int i = 0; i < kMaxSteps; ++i) {
      const Sight here = SeenFrom(length);
      (here.ahead > 0.0 ? lower : upper) = length;
      const double next = length + Step(here);
      if (std::fabs(next - length) <= kLastStep) return Offer(Moved(here, next - length));
      length = next > lower && next < upper ? next : 0.5 * (lower + upper);
    }
    Offer(SeenFrom(length));
  }

  double Step(const Sight& here) const {
    const double k = Curvature(here.length);
    const double fall = Fall(here);
    if (!(fall > 0.0)) return std::numeric_limits<double>::infinity();
    const double bend = 0.5 * here.ahead * (rate_ * here.right - k * k * here.ahead);
    if (std::fabs(bend) > 0.5 * fall * fall) return here.ahead / fall;
    return here.ahead * fall / (fall * fall - bend);
  }

  void Offer(const Sight& sight) {
    if (!(std::fabs(sight.right) < distance_)) return;
    foot_ = {sight.length, sight.right};
    distance_ = std::fabs(sight.right);
  }

  const Clothoid& curve_;
  double curvature_;
  double rate_;
  Vector point_;
  Foot foot_;
  double distance_ = std::numeric_limits<double>::infinity();
};

}  // namespace

ClothoidShape::ClothoidShape(const Place& start, double parameter, double radius, double endRadius,
                             double length)
    : Shape(start, length) {
  curve_.SetWithParameter({}, start.direction, parameter, radius, endRadius);
  if (!(curve_.CalcArcLength() > 0.0))
    throw LineException("A clothoid needs a parameter and two radii that differ");
  curve_.TangentPoint(nullptr, &curvature_, 0.0);
  double endCurvature = 0.0;
  curve_.TangentPoint(nullptr, &endCurvature, curve_.CalcArcLength());
  rate_ = (endCurvature - curvature_) / curve_.CalcArcLength();
  MeasureEnd();
}

Place ClothoidShape::PlaceAt(double length) const {
  Place place;
  place.point = GetStart().point + curve_.TangentPoint(&place.direction, nullptr, length);
  return place;
}

// The search begins and ends a little beyond the ends.
bool ClothoidShape::FindFootFrom(const Vector& from, Foot& foot) const {
  FootSearch search(curve_, curvature_, rate_, from);
  const Sight first = search.SeenFrom(0.0, {}, GetStart().along);
  const Sight last =
      search.SeenFrom(GetLength(), GetEnd().point - GetStart().point, GetEnd().along);
  search.Search(search.Moved(first, -kEndTolerance), search.Moved(last, kEndTolerance),
                kLeastShare * GetLength());
  return search.Get(foot);
}

}  // namespace Model
