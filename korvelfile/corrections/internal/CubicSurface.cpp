// Polynomials that are orthogonal over the sixteen nodes of a side make the adjustment a sum for
// each factor, without equations to solve.

#include "korvelfile/corrections/internal/CubicSurface.h"

#include <cmath>
#include <cstddef>

namespace {

constexpr std::size_t kSide = CubicSurface::kSide;
constexpr std::size_t kDegrees = 4;
constexpr float kLargest = 1e30F;

struct Polynomials {
  std::array<std::array<double, kDegrees>, kSide> at{};  ///< values at each node of a side
  std::array<double, kDegrees> squares{};                ///< sums of their squares over a side
};

// With x counted from the middle of the side: 1, x, x^2 - 21.25 and x^3 - 38.05 x, where 21.25 is
// the mean of x^2, and 38.05 that of x^4 over that of x^2.
constexpr Polynomials MakePolynomials() {
  Polynomials p;
  for (std::size_t i = 0; i < kSide; ++i) {
    const double x = static_cast<double>(i) - 7.5;
    p.at[i] = {1.0, x, x * x - 21.25, x * (x * x - 38.05)};
    for (std::size_t k = 0; k < kDegrees; ++k) p.squares[k] += p.at[i][k] * p.at[i][k];
  }
  return p;
}

constexpr Polynomials kPolynomials = MakePolynomials();

bool IsPlain(const CubicSurface::Values& values) {
  for (const float value : values)
    if (!(std::fabs(value) < kLargest)) return false;
  return true;
}

}  // namespace

CubicSurface::CubicSurface(const Values& values) {
  if (!IsPlain(values)) return;
  std::array<std::array<double, kDegrees>, kDegrees> sums{};  // by degree in row and column
  for (std::size_t row = 0; row < kSide; ++row) {
    std::array<double, kDegrees> ofRow{};
    for (std::size_t column = 0; column < kSide; ++column) {
      const double value = values[row * kSide + column];
      for (std::size_t k = 0; k < kDegrees; ++k) ofRow[k] += kPolynomials.at[column][k] * value;
    }
    for (std::size_t j = 0; j < kDegrees; ++j)
      for (std::size_t i = 0; i + j < kDegrees; ++i)
        sums[j][i] += kPolynomials.at[row][j] * ofRow[i];
  }
  std::size_t next = 0;
  for (std::size_t j = 0; j < kDegrees; ++j)
    for (std::size_t i = 0; i + j < kDegrees; ++i)
      factors_[next++] =
          static_cast<float>(sums[j][i] / (kPolynomials.squares[i] * kPolynomials.squares[j]));
}

CubicSurface::Profile CubicSurface::AlongRow(int row) const {
  const auto& f = factors_;
  const auto& y = kPolynomials.at[static_cast<std::size_t>(row)];
  Profile profile;
  profile.factors_ = {f[0] + f[4] * y[1] + f[7] * y[2] + f[9] * y[3],
                      f[1] + f[5] * y[1] + f[8] * y[2], f[2] + f[6] * y[1], f[3]};
  return profile;
}

float CubicSurface::Profile::At(int column) const {
  const auto& x = kPolynomials.at[static_cast<std::size_t>(column)];
  return static_cast<float>(factors_[0] + factors_[1] * x[1] + factors_[2] * x[2] +
                            factors_[3] * x[3]);
}
