// Corrections between the nodes of a grid: finding and reading the cell, four methods, the inverse.
// Formulas and their letters: docs/computations/grid-interpolation.md.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/internal/CcgRaster.h"
#include "korvelfile/corrections/internal/GridReader.h"
#include "korvelfile/corrections/internal/InverseIteration.h"
#include "korvelfile/corrections/internal/Truncate.h"

namespace {

constexpr double kEarthRadius = 6378137.0;  // metres, of the ellipsoids WGS 84 and GRS 80

using Four = std::array<double, 4>;

// The two moves of a point on a limit or beyond it, towards the inside. False, for a point that is
// not a number too, if it lies farther beyond than `tolerance`.
bool MoveBelow(double& value, double limit, double tolerance) {
  if (value < limit) return true;
  if (!(value - limit < tolerance)) return false;
  value -= tolerance;
  return true;
}

bool MoveAbove(double& value, double limit, double tolerance) {
  if (value > limit) return true;
  if (!(limit - value < tolerance)) return false;
  value += tolerance;
  return true;
}

// Weights of the Overhauser spline, in the form of Catmull and Rom, for the fraction x.
Four OverhauserWeights(double x) {
  const double x2 = x * x;
  const double x3 = x2 * x;
  return {x2 - 0.5 * x - 0.5 * x3, 1.0 - 2.5 * x2 + 1.5 * x3, 2.0 * x2 + 0.5 * x - 1.5 * x3,
          0.5 * x3 - 0.5 * x2};
}

// Power-basis coefficients of the cubic Lagrange polynomials on 0, 1/3, 2/3 and 1.
constexpr std::array<Four, 4> kLagrange{{{-4.5, 13.5, -13.5, 4.5},
                                         {9.0, -22.5, 18.0, -4.5},
                                         {-5.5, 9.0, -4.5, 1.0},
                                         {1.0, 0.0, 0.0, 0.0}}};

// Powers of the parameter of a fraction: the cell is the middle third of its stencil.
Four LagrangePowers(double fraction) {
  const double p = fraction / 3.0 + 0.3333333333333333;
  return {std::pow(p, 3.0), p * p, p, 1.0};
}

// The sums of these three go term by term from the first, as those of a general matrix product.
double Product(const Four& a, const Four& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
}

Four TimesLagrange(const Four& row) {
  Four product;
  for (std::size_t i = 0; i < 4; ++i) {
    product[i] = Product(row, {kLagrange[0][i], kLagrange[1][i], kLagrange[2][i], kLagrange[3][i]});
  }
  return product;
}

Four TimesLagrangeTransposed(const Four& row) {
  return {Product(row, kLagrange[0]), Product(row, kLagrange[1]), Product(row, kLagrange[2]),
          Product(row, kLagrange[3])};
}

// The surface through nine nodes at t, s = -1, 0, 1 around the centre: p is south-west, south,
// south-east, west, centre, east, north-west, north, north-east.
double BiquadraticValue(const std::array<double, 9>& p, double t, double s) {
  const double a0 = p[4];
  const double a1 = (p[7] - p[1]) * 0.5;
  const double a2 = (p[5] - p[3]) * 0.5;
  const double a3 = (p[0] - p[2] - p[6] + p[8]) * 0.25;
  const double a4 = (p[1] + p[7]) * 0.5 - p[4];
  const double a5 = (p[3] + p[5]) * 0.5 - p[4];
  const double a6 = (p[6] - p[0] - p[2] + p[8]) * 0.25 + (p[1] - p[7]) * 0.5;
  const double a7 = (p[2] - p[0] - p[6] + p[8]) * 0.25 + (p[3] - p[5]) * 0.5;
  const double a8 = p[4] - (p[1] + p[3] + p[5] + p[7]) * 0.5 + (p[0] + p[2] + p[6] + p[8]) * 0.25;
  const double tt = t * t;
  const double ss = s * s;
  return a0 + a1 * t + a2 * s + a3 * t * s + a4 * tt + a5 * ss + a6 * t * ss + a7 * tt * s +
         a8 * tt * ss;
}

}  // namespace

bool CcgFile::GetCorrections(double north, double east, Vector3d& corrections) const {
  const bool hasXY = info_.HasXYComponents();
  const bool hasZ = info_.HasZComponent();
  needsFourNodes_ = (!hasXY || info_.planeInterpolation == Bilinear) &&
                    (!hasZ || info_.heightInterpolation == Bilinear);
  if (hasXY) {
    if (!Interpolate(north, east, corrections, info_.planeInterpolation)) return false;
    if (!hasZ || info_.heightInterpolation == info_.planeInterpolation) return true;
  }
  Vector3d height;
  if (!Interpolate(north, east, height, info_.heightInterpolation)) return false;
  corrections.z = height.z;
  return true;
}

bool CcgFile::GetInverseCorrections(double north, double east, Vector3d& corrections) const {
  if (info_.correctionType == CorrectionLatLongForward) return false;
  const auto find = [this](double n, double e, Vector3d& correction) {
    return GetCorrections(n, e, correction);
  };
  Vector3d found;
  if (!IterateInverse(north, east, GetTolerance(), find, found)) return false;
  if (info_.HasXYComponents()) {
    corrections = found;
  } else {
    corrections.z = found.z;
  }
  return true;
}

bool CcgFile::Interpolate(double north, double east, Vector3d& corrections, int type) const {
  switch (type) {
    case Bilinear:
      return GetCorrectionsBilinear(north, east, corrections);
    case Bicubic:
      return GetCorrectionsBicubic(north, east, corrections);
    case Overhausen:
      return GetCorrectionsOverhausen(north, east, corrections);
    case Biquadratic:
      return GetCorrectionsBiquadratic(north, east, corrections);
    default:
      return false;
  }
}

// Takes value(component) for the components of the grid. A value that is not finite, which only
// limits and spacings without sense can make, is none.
template <class Value>
bool CcgFile::SetCorrections(Vector3d& corrections, Value value) const {
  Vector3d values;
  if (info_.HasXYComponents()) {
    values.x = value(0);
    values.y = value(1);
  }
  if (info_.HasZComponent()) values.z = value(2);
  if (!std::isfinite(values.x) || !std::isfinite(values.y) || !std::isfinite(values.z))
    return false;
  corrections = values;
  return true;
}

bool CcgFile::GetCorrectionsBilinear(double north, double east, Vector3d& corrections) const {
  if (!GetInterpolationNodes(north, east)) return false;
  const Fractions f = GetFractions(north, east);
  return SetCorrections(corrections, [&](std::size_t k) {
    const double nw = stencil_[1][1][k];
    const double ne = stencil_[1][2][k];
    const double sw = stencil_[2][1][k];
    const double se = stencil_[2][2][k];
    return (nw - sw) * f.t + sw + (se - sw) * f.s + (sw - se - nw + ne) * f.t * f.s;
  });
}

// The chain R M G M^T C of docs/computations/grid-interpolation.md from left to right. R M is the
// same for all components.
bool CcgFile::GetCorrectionsBicubic(double north, double east, Vector3d& corrections) const {
  if (!GetInterpolationNodes(north, east)) return false;
  const Fractions f = GetFractions(north, east);
  const Four weights = TimesLagrange(LagrangePowers(f.s));
  const Four powers = LagrangePowers(f.t);
  return SetCorrections(corrections, [&](std::size_t k) {
    Four along;
    for (std::size_t b = 0; b < 4; ++b) {
      const auto& row = stencil_[3 - b];
      along[b] = Product(weights, {row[0][k], row[1][k], row[2][k], row[3][k]});
    }
    return Product(TimesLagrangeTransposed(along), powers);
  });
}

bool CcgFile::GetCorrectionsOverhausen(double north, double east, Vector3d& corrections) const {
  if (!GetInterpolationNodes(north, east)) return false;
  const Fractions f = GetFractions(north, east);
  const Four southwards = OverhauserWeights(f.u);
  const Four eastwards = OverhauserWeights(f.s);
  return SetCorrections(corrections, [&](std::size_t k) {
    double sum = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
      for (std::size_t j = 0; j < 4; ++j) sum += southwards[i] * eastwards[j] * stencil_[i][j][k];
    }
    return sum;
  });
}

bool CcgFile::GetCorrectionsBiquadratic(double north, double east, Vector3d& corrections) const {
  if (!GetInterpolationNodes(north, east)) return false;
  Fractions f = GetFractions(north, east);
  const std::size_t row = f.t >= 0.5 ? 1 : 2;
  const std::size_t column = f.s >= 0.5 ? 2 : 1;
  if (row == 1) f.t -= 1.0;
  if (column == 2) f.s -= 1.0;
  return SetCorrections(corrections, [&](std::size_t k) {
    std::array<double, 9> nodes;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      nodes[i] = stencil_[row + 1 - i / 3][column - 1 + i % 3][k];
    }
    return BiquadraticValue(nodes, f.t, f.s);
  });
}

// The point moved inside serves only to find the cell.
bool CcgFile::GetInterpolationNodes(double north, double east) const {
  if (!CheckLimits(north, east)) return false;
  const int row = TruncateOr((info_.northMax - north) / info_.northSpacing, -1);
  const int column = TruncateOr((east - info_.eastMin) / info_.eastSpacing, -1);
  const int rim = needsFourNodes_ ? 0 : 1;
  if (row < rim || row >= info_.rows - 1 - rim) return false;
  if (column < rim || column >= info_.columns - 1 - rim) return false;
  if (row == cachedRow_ && column == cachedColumn_) return true;
  const bool isRead = ReadNodes(row, column);
  cachedRow_ = isRead ? row : -1;
  cachedColumn_ = isRead ? column : -1;
  return isRead;
}

// Sixteen nodes take a ring of cells around the point's own.
bool CcgFile::CheckLimits(double& north, double& east) const {
  const double tolerance = GetTolerance();
  if (needsFourNodes_ && info_.planeInterpolation == Bilinear) {
    return MoveBelow(north, info_.northMax, tolerance) &&
           MoveAbove(east, info_.eastMin, tolerance) &&
           MoveAbove(north, info_.northMin, tolerance) && MoveBelow(east, info_.eastMax, tolerance);
  }
  return MoveAbove(east, info_.eastMin + info_.eastSpacing, tolerance) &&
         MoveBelow(east, info_.eastMax - info_.eastSpacing, tolerance) &&
         MoveAbove(north, info_.northMin + info_.northSpacing, tolerance) &&
         MoveBelow(north, info_.northMax - info_.northSpacing, tolerance);
}

bool CcgFile::ReadNodes(int row, int column) const {
  constexpr std::size_t kMostNodes = 16;
  constexpr std::size_t kMostValues = 3;
  const int first = needsFourNodes_ ? 1 : 0;  // of the stencil, in rows and in columns
  const int count = needsFourNodes_ ? 2 : 4;
  const int values = info_.GetNumberOfValues();
  const NodeWindow window{row - 1 + first, column - 1 + first, count, count};
  const int lastRow = row - 2 + first + count;
  if (values == 0 || NodePosition(info_, lastRow, column - 1 + first) < 0) return false;
  std::array<float, kMostNodes * kMostValues> nodes;
  const GridLayout layout{info_.dataOffset, std::int64_t{info_.columns} * values * 4, values};
  if (!reader_->Read(info_.fileName, layout, window, nodes.data())) return false;
  const float* node = nodes.data();
  for (int i = first; i < first + count; ++i) {
    for (int j = first; j < first + count; ++j, node += values) {
      if (!ReadNode(node, stencil_[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]))
        return false;
    }
  }
  return true;
}

// A single float is Z.
bool CcgFile::ReadNode(const float* floats, Node& node) const {
  constexpr double kLeastMissing = 9998.0;
  const auto values = static_cast<std::size_t>(info_.GetNumberOfValues());
  const std::size_t first = values == 1 ? 2 : 0;
  for (std::size_t i = 0; i < values; ++i) {
    const double value = floats[i];
    if (!std::isfinite(value) || value >= kLeastMissing) return false;
    node[first + i] = value;
  }
  return true;
}

double CcgFile::GetTolerance() const {
  return info_.IsLatLongType() ? tolerance_ / kEarthRadius : tolerance_;
}

CcgFile::Fractions CcgFile::GetFractions(double north, double east) const {
  const double u = (info_.northMax - north - cachedRow_ * info_.northSpacing) / info_.northSpacing;
  const double s = (east - info_.eastMin - cachedColumn_ * info_.eastSpacing) / info_.eastSpacing;
  return {u, 1.0 - u, s};
}
