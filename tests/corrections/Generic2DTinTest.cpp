#include <algorithm>
#include <array>
#include <cmath>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/corrections/Generic2DTin.h"
#include "korvelfile/outside/base/Angles.h"
#include "tests/support/Random.h"

namespace {

using Corners = std::array<int, 3>;

constexpr double kEast = 480000.0;
constexpr double kNorth = 6580000.0;

struct Shape {
  std::vector<Vector> points;
  std::vector<Corners> triangles;
};

// A network that carries the eastings in its values.
class Network : public FloatVectorTin {
 public:
  using FloatVectorTin::LocateTriangle;

  bool Set(const Shape& shape) {
    for (const Vector& p : shape.points)
      points_.push_back({p, {static_cast<float>(p.x - kEast), 0.0F}});
    for (const auto& [a, b, c] : shape.triangles) triangles_.push_back({a, b, c});
    return set_triangles();
  }

  // The rule of locating, told plainly.
  int LocatePlainly(const Vector& p, int& last) const {
    if (last >= 0 && Holds(p, last)) return last;
    int found = last < 0 ? -1 : PointInsideNeighbourTriangle(p, last, -1, 5);
    for (int t = 0; found < 0 && t < GetNumTriangles(); ++t)
      if (Holds(p, t)) found = t;
    return found < 0 ? -1 : last = found;
  }

 private:
  bool Holds(const Vector& p, int t) const {
    const Corners& v = triangles_[static_cast<std::size_t>(t)].vertex;
    const auto at = [&](std::size_t i) { return Point(static_cast<std::size_t>(v[i])); };
    return PointInsideTriangle(p, at(0), at(1), at(2));
  }
};

// Squares of 10 m, each cut from its lower left to its upper right corner.
Shape Squares(int columns, int rows) {
  Shape shape;
  for (int i = 0; i < (columns + 1) * (rows + 1); ++i) {
    const int column = i % (columns + 1);
    shape.points.emplace_back(kEast + 10.0 * column, kNorth + 10.0 * (i / (columns + 1)));
    const int above = i + columns + 1;
    if (column == columns || above >= (columns + 1) * (rows + 1)) continue;
    shape.triangles.push_back({i, i + 1, above + 1});
    shape.triangles.push_back({i, above + 1, above});
  }
  return shape;
}

// Any triples of points, also of the same point, that `coordinate` makes.
template <class Coordinate>
Shape AnyTriangles(PrintedRandom& random, Coordinate coordinate) {
  Shape shape;
  for (int i = 0; i < 14; ++i) shape.points.emplace_back(coordinate(), coordinate());
  const auto any = [&] { return static_cast<int>(random.Below(shape.points.size())); };
  for (int i = 0; i < 60; ++i) shape.triangles.push_back({any(), any(), any()});
  return shape;
}

// Networks as they should be, and all that bad ones can bring.
std::vector<Shape> Shapes(PrintedRandom& random) {
  const double strange[] = {0.0, 1.0, 1e-320, -1e-160, 3e160, 1e308, HUGE_VAL, std::nan("")};
  std::vector<Shape> shapes(4, Squares(9, 7));
  for (std::size_t i = 1; i < 4; ++i)
    for (Vector& p : shapes[i].points)
      p += random.Between(0.0, static_cast<double>(6 * i)) * Vector(1.0, random.Between(-1.0, 1.0));
  shapes[1].points.front() = {0.0, 0.0};
  for (int i = 0; i < 12; ++i) {
    shapes.push_back(AnyTriangles(random, [&] { return 6.5e6 + random.Between(0.0, 4e-9); }));
    shapes.push_back(AnyTriangles(random, [&] { return strange[random.Below(8)]; }));
    double x = 0.0;  // along a line, off it by rounding errors
    shapes.push_back(AnyTriangles(random, [&] {
      return x == 0.0 ? x = std::round(random.Between(1e6, 6e6)) : std::exchange(x, 0.0) / 3.0;
    }));
  }
  return shapes;
}

// Vertices, points on and across edges, and their next neighbours among the numbers.
std::vector<Vector> AwkwardPoints(PrintedRandom& random, const Shape& shape) {
  std::vector<Vector> points;
  for (int i = 0; i < 300; ++i) {
    const Corners& t = shape.triangles[random.Below(shape.triangles.size())];
    const Vector& a = shape.points[static_cast<std::size_t>(t[0])];
    const Vector& b = shape.points[static_cast<std::size_t>(t[1])];
    const double shares[] = {0.0, 0.5, random.Between(-0.5, 1.5)};
    const Vector p = a + shares[random.Below(3)] * (b - a);
    points.push_back(p);
    points.emplace_back(std::nextafter(p.x, random.Between(-1e9, 1e9)), p.y);
  }
  return points;
}

TEST(Generic2DTin, LocatesInThreadsAsAPlainScanDoes) {
  PrintedRandom random(61);
  for (const Shape& shape : Shapes(random)) {
    Network network;
    ASSERT_TRUE(network.Set(shape));
    const auto locate = [&network](const std::vector<Vector>& points) {
      int last = -1;
      for (const Vector& p : points) {
        const int expected = network.LocatePlainly(p, last);
        ASSERT_EQ(network.LocateTriangle(p), expected) << p.x << " " << p.y;
        network.GetCrossSection(p, p.x);  // comes to an end
      }
    };
    const std::jthread other(locate, AwkwardPoints(random, shape));
    locate(AwkwardPoints(random, shape));
  }
}

TEST(Generic2DTin, LinksThreeTrianglesAtOneEdge) {
  Network network;
  const std::vector<Corners> triangles = {{0, 1, 2}, {2, 1, 3}, {2, 1, 3}};
  const std::vector<Corners> neighbours = {{-1, 2, -1}, {2, -1, -1}, {1, -1, -1}};
  ASSERT_TRUE(network.Set({{{0, 0}, {0, 1}, {1, 0}, {1, 1}}, triangles}));
  for (std::size_t t = 0; t < 3; ++t) EXPECT_EQ(network.Triangle(t).neighbour, neighbours[t]);
}

// Comparing all triangles at the hub would take too long.
TEST(Generic2DTin, LinksManyTrianglesAtOnePoint) {
  constexpr int kCount = 50000;
  Shape fan{{{0.0, 0.0}}, {}};
  for (int i = 1; i <= kCount; ++i) {
    fan.points.emplace_back(std::cos(kTwoPi * i / kCount), std::sin(kTwoPi * i / kCount));
    fan.triangles.push_back({0, i, i % kCount + 1});
  }
  Network network;
  ASSERT_TRUE(network.Set(fan));
  for (const auto& triangle : network.GetTriangles())
    ASSERT_EQ(std::ranges::count(triangle.neighbour, -1), 1);
  for (Corners& triangle : fan.triangles) triangle[1] = 1;
  EXPECT_FALSE(Network().Set(fan));
}

TEST(Generic2DTin, DrawsSections) {
  Network whole;
  ASSERT_TRUE(whole.Set(Squares(4, 4)));
  Network corner;  // without the square in the upper left
  Shape squares = Squares(2, 2);
  squares.triangles.erase(squares.triangles.begin() + 4, squares.triangles.begin() + 6);
  ASSERT_TRUE(corner.Set(squares));
  Network strip;
  ASSERT_TRUE(strip.Set(Squares(30000, 1)));
  EXPECT_EQ(strip.GetCrossSection({kEast + 4.0, kNorth + 3.0}, kHalfPi).size(), 60001U);

  using Xs = std::vector<double>;
  // Network, where, direction, easting of each point, northing at easting 0, northing to easting.
  const std::tuple<Network&, Vector, double, Xs, double, double> kCases[] = {
      {whole, {12, 13}, kHalfPi, Xs{0, 3, 10, 13, 20, 23, 30, 33, 40}, 13, 0},
      {whole, {12, 13}, -kHalfPi, Xs{40, 33, 30, 23, 20, 13, 10, 3, 0}, 13, 0},
      {whole, {12, 20}, kHalfPi, Xs{0, 10, 20, 30, 40}, 20, 0},    // along edges
      {whole, {12, 0}, kHalfPi, Xs{0, 10, 20, 30, 40}, 0, 0},      // along the rim
      {whole, {20, 20}, 0.75 * kPi, Xs{0, 10, 20, 30, 40}, 0, 1},  // from a vertex
      {whole, {5, 35}, 0.25 * kPi, Xs{0, 5, 10, 15, 20, 25, 30, 35, 40}, 40, -1},
      {whole, {40, 0}, 0.75 * kPi, Xs{40}, -40, 1},        // touches a corner
      {corner, {3, 3}, 0.75 * kPi, Xs{0, 10, 20}, 0, 1},   // round the inner corner
      {corner, {12, 15}, kHalfPi, Xs{10, 15, 20}, 15, 0},  // as far as the rim
      {corner, {1, 15}, kHalfPi, Xs{}, 15, 0},             // outside
      {whole, {12, 13}, std::nan(""), Xs{}, 0, 0},
  };
  for (const auto& [network, at, direction, x, north, slope] : kCases) {
    const auto section = network.GetCrossSection(Vector(kEast, kNorth) + at, direction);
    ASSERT_EQ(section.size(), x.size()) << at.x << " " << at.y;
    for (std::size_t i = 0; i < section.size(); ++i) {
      const Vector expected(kEast + x[i], kNorth + north + slope * x[i]);
      EXPECT_NEAR(section[i].GetDistance(expected), 0.0, 1e-8) << at.x << " " << at.y;
      EXPECT_FLOAT_EQ(section[i].value.x, static_cast<float>(x[i])) << at.x << " " << at.y;
    }
  }
}

}  // namespace
