#include "korvelfile/outside/base/internal/ClothoidIntegral.h"

#include <array>
#include <cmath>
#include <cstddef>

#include <boost/math/quadrature/gauss.hpp>

#include "korvelfile/outside/base/Angles.h"

// A short curve is integrated by Gauss's rule about its middle. A longer one is the difference of
// two tails of the Fresnel integral, each without the phase that it begins with: so nothing but the
// turn between the ends enters, and curves of hardly changing curvature, whose inflection lies very
// far away, lose no digits. Power series were rejected because they cancel at large turns,
// asymptotic series because they don't reach small ones.

namespace {

using Complex = std::complex<double>;
using Gauss = boost::math::quadrature::gauss<double, 10>;

// Turns about the middle, in radians, up to which the rule of ten points is good to 1e-16: linear
// part and quadratic part over half the length.
constexpr double kLinearLimit = 1.0;
constexpr double kQuadraticLimit = 0.2;

const double kRootTwoPi = std::sqrt(kTwoPi);
const Complex kRootTwoPiI = kRootTwoPi * Complex(std::sqrt(0.5), std::sqrt(0.5));

Complex Unit(double angle) { return {std::cos(angle), std::sin(angle)}; }

// Nodes t and weights exp(-t^2) of the trapezium rule below.
constexpr std::size_t kNodes = 14;
const double kStretch = std::sqrt((kNodes + 0.5) * kPi);

struct Node {
  double square;
  double weight;
};

const std::array<Node, kNodes> kTrapezium = [] {
  std::array<Node, kNodes> nodes;
  for (std::size_t i = 0; i < kNodes; ++i) {
    const double t = (static_cast<double>(i) + 0.5) * kPi / kStretch;
    nodes[i] = {t * t, std::exp(-t * t)};
  }
  return nodes;
}();

// Beyond this the correction for the pole is below 1e-17 of the sum.
constexpr double kPoleLimit = 6.5;
// Beyond this the tail is i/z to all digits.
constexpr double kFarLimit = 1e9;

// Integral of exp(i (z v + v^2 / 2)) over v from 0 to infinity, z >= 0.
//
// Source: Alazah, Chandler-Wilde, La Porte, Computing Fresnel integrals via modified trapezium
// rules, Numerische Mathematik 128 (2014), formulas (4) and (5) with x = z / sqrt 2, times
// exp(-i x^2).
Complex Tail(double z) {
  if (z > kFarLimit) return {0.0, 1.0 / z};
  const double square = 0.5 * z * z;
  double real = 0.0;
  double imaginary = 0.0;
  for (const Node& node : kTrapezium) {
    const double part = node.weight / (square * square + node.square * node.square);
    real += part * node.square;
    imaginary += part;
  }
  const double factor = kRootTwoPi * std::sqrt(0.5) * z / kStretch;
  const Complex sum = factor * Complex(real, imaginary * square);
  if (z > kPoleLimit) return sum;
  const Complex pole = 1.0 + std::exp(kStretch * z) * Unit(-kStretch * z);
  return sum + kRootTwoPiI * Unit(-square) / pole;
}

// The tail on the side of z, so that the integral from z to its infinity is Unit(z^2 / 2) times it.
Complex SignedTail(double z) { return z < 0.0 ? -Tail(-z) : Tail(z); }

// Integral over half a length h each way about the middle, where the curvature is k.
Complex Short(double k, double c, double h) {
  const double linear = k * h;
  const double quadratic = 0.5 * c * h * h;
  Complex sum = 0.0;
  for (std::size_t i = 0; i < Gauss::abscissa().size(); ++i) {
    const double x = Gauss::abscissa()[i];
    sum += Gauss::weights()[i] * 2.0 * std::cos(linear * x) * Unit(quadratic * x * x);
  }
  return h * sum;
}

// With c = 1 / a^2 and z = a times the curvature, both ends as tails; between infinities of unlike
// sign lies the whole integral.
Complex Long(double k, double c, double s) {
  const double a = 1.0 / std::sqrt(c);
  const double z1 = k * a;
  const double z2 = (k + c * s) * a;
  Complex sum = SignedTail(z1) - Unit(s * (k + 0.5 * c * s)) * SignedTail(z2);
  // The angle at the start is worked out without the root, which costs digits.
  const auto between = [&] { return Unit(-0.5 * k * k / c) * kRootTwoPiI; };
  if (z1 < 0.0 && z2 >= 0.0) sum += between();
  if (z1 >= 0.0 && z2 < 0.0) sum -= between();
  return a * sum;
}

}  // namespace

Complex clothoid::Integrate(double k, double c, double s) {
  const double h = 0.5 * s;
  const double middle = k + c * h;
  if (std::fabs(middle * h) <= kLinearLimit && std::fabs(0.5 * c * h * h) <= kQuadraticLimit)
    return Unit(h * (k + 0.5 * c * h)) * Short(middle, c, h);
  return c < 0.0 ? std::conj(Long(-k, -c, s)) : Long(k, c, s);
}
