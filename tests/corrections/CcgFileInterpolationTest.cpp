#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

#include "korvelfile/corrections/CcgFile.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"

namespace {

constexpr int kLines = 6;
constexpr double kSpacing = 8.0;

// Weight of line `k` of the polynomial through the lines `first` to `last`, which lie at whole x.
double Lagrange(double x, int k, int first, int last) {
  double weight = k < first || k > last ? 0.0 : 1.0;
  for (int j = first; j <= last; ++j)
    if (j != k) weight *= (x - j) / (k - j);
  return weight;
}

// Weights by another route than the library's: polynomials without matrices, and the Overhauser
// spline as two parabolas that go over into each other.
double Weight(int method, double x, int k) {
  const double before = Lagrange(x, k, -1, 1);
  const double behind = Lagrange(x, k, 0, 2);
  if (method == Bilinear) return Lagrange(x, k, 0, 1);
  if (method == Bicubic) return Lagrange(x, k, -1, 2);
  if (method == Overhausen) return (1.0 - x) * before + x * behind;
  return x < 0.5 ? before : behind;
}

class CcgFileInterpolation : public testing::Test {
 protected:
  // A new file of random values on a square grid; radians are as large as metres.
  void Make(int type, int plane, int height) {
    CcgFileInfo info(100.0, 200.0, kSpacing, kSpacing, kLines, kLines);
    info.fileName = folder_.Path("grid.ccg");
    info.correctionType = type;
    info.planeInterpolation = plane;
    info.heightInterpolation = height;
    grid_ = CcgInputGrid(info);
    for (float& value : grid_.residuals) value = static_cast<float>(random_.Below(2000)) / 64.0F;
    Write();
  }

  void Write() {
    std::filesystem::remove(grid_.fileName);
    EXPECT_EQ(file_.CreateOrUpdateFile(grid_), GeoSuccess);
  }

  float& Node(int row, int column, int value) {
    const int node = row * kLines + column;
    return grid_.residuals[static_cast<std::size_t>(node * grid_.GetNumberOfValues() + value)];
  }

  // Asks for the correction at `south` and `east`, in spacings from the north-west node.
  bool Get(double south, double east) {
    return file_.GetCorrections(100.0 - south * kSpacing, 200.0 + east * kSpacing, c_);
  }

  double Expected(int method, double south, double east, int value) {
    const int row = static_cast<int>(south);
    const int column = static_cast<int>(east);
    double sum = 0.0;
    for (int i = -1; i <= 2; ++i)
      for (int j = -1; j <= 2; ++j)
        sum += Weight(method, south - row, i) * Weight(method, east - column, j) *
               Node(row + i, column + j, value);
    return sum;
  }

  TempFolder folder_;
  PrintedRandom random_{20260301};
  CcgInputGrid grid_{CcgFileInfo()};
  CcgFile file_;
  Vector3d c_;
};

TEST_F(CcgFileInterpolation, AllTypesAndMethods) {
  const auto place = [&] { return 1.0 + (static_cast<double>(random_.Below(3072)) + 0.5) / 1024; };
  for (int i = 0; i < 7 * 4 * 4; ++i) {
    const int plane = i % 4 + 1;
    const int height = i / 4 % 4 + 1;
    Make(i / 16 + 1, plane, height);
    const bool hasXY = grid_.HasXYComponents();
    for (int point = 0; point < 20; ++point) {
      const double south = point == 0 ? 2.0 : place();
      const double east = point == 0 ? 3.0 : place();
      Vector3d expected(7.0, 7.0, 0.0);
      if (hasXY) expected.x = Expected(plane, south, east, 0);
      if (hasXY) expected.y = Expected(plane, south, east, 1);
      if (grid_.HasZComponent()) expected.z = Expected(height, south, east, hasXY ? 2 : 0);
      c_ = {7.0, 7.0, 7.0};
      ASSERT_TRUE(Get(south, east)) << i << ": " << south << ' ' << east;
      EXPECT_LT(c_.GetDistance(expected), 1e-13) << i;
    }
  }
}

TEST_F(CcgFileInterpolation, LimitsAndTheTenthOfAMillimetre) {
  for (int i = 0; i < 8; ++i) {
    Make(i < 4 ? CorrectionXYZ : CorrectionLatLongXYZ, Bilinear, i % 4 + 1);
    const double first = i % 4 + 1 == Bilinear ? 0.0 : 1.0;
    const double last = kLines - 1 - first;
    for (const double metres : {0.0, 0.00009, 0.00011}) {
      const bool isGood = metres < 0.0001;
      const double beyond = metres / kSpacing / (i < 4 ? 1.0 : 6378137.0);
      const int passed = Get(first - beyond, 2.5) + Get(2.5, last + beyond) +
                         Get(2.5, first - beyond) + Get(last + beyond, 2.5);
      EXPECT_EQ(passed, isGood ? 4 : 0) << i << ' ' << metres;
      EXPECT_FALSE(Get(std::nan(""), 2.5) || Get(2.5, std::nan("")));
    }
  }
}

TEST_F(CcgFileInterpolation, EveryNodeOfTheStencilMustHaveAValue) {
  for (const float value : {9997.5F, 9998.0F, 9999.0F, std::nanf(""), -INFINITY}) {
    for (const int method : {Bilinear, Bicubic, Overhausen, Biquadratic}) {
      Make(CorrectionZ, method, method);
      Node(1, 1, 0) = value;
      Write();
      EXPECT_EQ(Get(2.5, 2.5), method == Bilinear || value == 9997.5F) << value;
      EXPECT_EQ(Get(1.5, 1.5), value == 9997.5F) << value;
    }
  }
}

TEST_F(CcgFileInterpolation, OnlyAnotherCellIsReadFromTheFile) {
  Make(CorrectionZ, Bilinear, Bilinear);
  ASSERT_TRUE(Get(2.5, 2.5));
  std::filesystem::remove(grid_.fileName);
  EXPECT_TRUE(Get(2.1, 2.9));
  EXPECT_FALSE(Get(3.5, 2.5));
  EXPECT_FALSE(Get(2.5, 2.5));
}

TEST_F(CcgFileInterpolation, InverseEndsAfterTenPasses) {
  Make(CorrectionXY, Bilinear, Bilinear);
  for (std::size_t i = 0; i < grid_.residuals.size(); ++i)  // north - 80: 83 and 80 take turns
    grid_.residuals[i] = i % 2 == 1 ? 0.0F : 20.0F - 8.0F * static_cast<float>(i / (2 * kLines));
  Write();
  EXPECT_TRUE(file_.GetInverseCorrections(83.0, 220.0, c_));
  EXPECT_EQ(c_, Vector3d(0.0, 0.0, 0.0));
  Make(CorrectionZ, Bilinear, Bilinear);
  c_ = {1e9, 1e9, 0.0};  // no part of the iteration
  EXPECT_TRUE(file_.GetInverseCorrections(80.0, 220.0, c_));
  EXPECT_EQ(c_, Vector3d(1e9, 1e9, Expected(Bilinear, 2.5, 2.5, 0)));
  Make(CorrectionLatLongForward, Bilinear, Bilinear);
  EXPECT_FALSE(file_.GetInverseCorrections(80.0, 220.0, c_));
}

}  // namespace
