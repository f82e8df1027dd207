#pragma once

#include <array>

/// Cubic surface over a tile of 16 x 16 nodes.
class CubicSurface {
 public:
  static constexpr int kSide = 16;  ///< nodes along a side of the tile

  using Values = std::array<float, kSide * kSide>;

  /// The plane 0.
  CubicSurface() = default;

  /// The surface of least squares through `values`, row after row.
  ///
  /// Values that are not finite, or so large that the surface might leave the range of a float,
  /// give the plane 0.
  explicit CubicSurface(const Values& values);

  /// The surface along one row of nodes.
  class Profile {
   public:
    /// Height in a node; the same bits whenever it is asked for.
    float At(int column) const;

   private:
    friend class CubicSurface;
    std::array<double, 4> factors_;  ///< of the polynomials in the column
  };

  Profile AlongRow(int row) const;

 private:
  /// Factors of the products of a polynomial in the column with one in the row, of a degree of up
  /// to 3 together: degrees 00, 10, 20, 30, 01, 11, 21, 02, 12, 03 in column and row.
  std::array<float, 10> factors_{};
};
