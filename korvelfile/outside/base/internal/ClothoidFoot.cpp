#include "korvelfile/outside/base/internal/ClothoidFoot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/internal/ClothoidIntegral.h"

// The curve is looked at in steps over which it hardly turns; each step that holds the nearest
// place of its neighbourhood is searched by Newton's method, kept within a bracket.

namespace {

using clothoid::Sight;
using Found = std::optional<Sight>;

// Turn per step, radians: two feet don't hide in one.
constexpr double kStepTurn = kPi / 8.0;
// Steps over a curve at most, of 30 turns, and beyond an end.
constexpr double kMaxSteps = 480.0;
constexpr int kMaxStepsBeyond = 100;
// A Newton step that is short enough to end with, metres, and how many there may be.
constexpr double kAccuracy = 1e-11;
constexpr int kMaxPasses = 100;

double Distance(const Sight& sight) { return std::hypot(sight.ahead, sight.left); }

class FootSearch {
 public:
  FootSearch(double k, double c, double whole, const std::complex<double>& point)
      : k_(k), c_(c), whole_(whole), point_(point) {}

  Found Find() {
    const double turn = std::max(std::fabs(k_), std::fabs(Curvature(whole_))) * whole_;
    const double steps = std::clamp(std::ceil(turn / kStepTurn), 1.0, kMaxSteps);
    Sight before = From(0.0);
    Sight here = before;
    for (double i = 1.0; i <= steps; i += 1.0) {
      const Sight next = From(whole_ * (i / steps));
      Consider(before, here, next);
      before = here;
      here = next;
    }
    Consider(before, here, here);
    return best_;
  }

 private:
  double Curvature(double s) const { return k_ + c_ * s; }

  Sight From(double s) const {
    const double turn = s * (k_ + 0.5 * c_ * s);
    const std::complex<double> seen =
        (point_ - clothoid::Integrate(k_, c_, s)) * std::polar(1.0, -turn);
    return {s, seen.real(), seen.imag()};
  }

  // Takes the foot near `here` if neither neighbour is nearer to the point, and the foot is nearer
  // than the best so far. At an end of the curve `here` is its own neighbour; a foot beyond it
  // counts as far as the end.
  void Consider(const Sight& before, const Sight& here, const Sight& next) {
    const double distance = Distance(here);
    if (!(distance <= Distance(before) && distance <= Distance(next))) return;
    const Sight& other = here.ahead > 0.0 ? next : before;
    const bool isBeyond = other.length == here.length;
    const Found foot = isBeyond ? Beyond(here) : Between(here, other);
    if (!foot) return;
    const double found = isBeyond ? distance : Distance(*foot);
    if (best_ && !(found < nearest_)) return;
    best_ = foot;
    nearest_ = found;
  }

  Found Beyond(Sight end) const {
    const double sense = std::copysign(1.0, end.ahead);
    for (int i = 0; i < kMaxStepsBeyond; ++i) {
      const double rate = std::fabs(Curvature(end.length)) + std::sqrt(std::fabs(c_) * kStepTurn);
      const Sight next = From(end.length + sense * kStepTurn / rate);
      if (!(next.ahead * sense > 0.0)) return Between(end, next);
      end = next;
    }
    return {};
  }

  // The foot between two places, starting from the first. The point is ahead of one and behind the
  // other; where it isn't, nearer ones to the first are tried.
  Found Between(const Sight& first, Sight second) const {
    for (int i = 0; first.ahead * second.ahead > 0.0; ++i) {
      if (i == kMaxPasses) return {};
      second = From(0.5 * (first.length + second.length));
    }
    return first.ahead > 0.0 || second.ahead < 0.0 ? Solve(first, first, second)
                                                   : Solve(first, second, first);
  }

  // The point is ahead of `low` and behind `high`.
  Found Solve(Sight here, const Sight& low, const Sight& high) const {
    double lower = low.length;
    double upper = high.length;
    for (int i = 0; i < kMaxPasses; ++i) {
      (here.ahead > 0.0 ? lower : upper) = here.length;
      const double step = here.ahead / (1.0 - Curvature(here.length) * here.left);
      double next = here.length + step;
      if (!(next >= lower && next <= upper)) next = 0.5 * (lower + upper);
      const bool isClose = std::fabs(next - here.length) <= kAccuracy;
      here = From(next);
      if (isClose) break;
    }
    if (!std::isfinite(here.length) || !std::isfinite(Distance(here))) return {};
    return here;
  }

  double k_;
  double c_;
  double whole_;
  std::complex<double> point_;
  Found best_;
  double nearest_ = 0.0;
};

}  // namespace

Found clothoid::FindFoot(double k, double c, double whole, const std::complex<double>& point) {
  if (!std::isfinite(point.real()) || !std::isfinite(point.imag())) return {};
  return FootSearch(k, c, whole, point).Find();
}
