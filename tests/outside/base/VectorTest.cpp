#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// A field of 500 m round, at seven-digit coordinates.
class Field {
 public:
  explicit Field(unsigned seed) : random_(seed) {}
  double Number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }
  Vector Point() { return {6783000.0 + Number(-250, 250), 3531000.0 + Number(-250, 250)}; }

 private:
  std::mt19937 random_;
};

double AngleBetween(const Vector& station, const Vector& from, const Vector& to) {
  return NormalizeAngle(station.GetDirection(to) - station.GetDirection(from), kTwoPi, -kPi);
}

bool IsLeft(const Vector& p, const Vector& a, const Vector& b) {
  return (b - a).GetCrossProduct(p - a) > 0.0;
}

TEST(VectorMeasBinding, FindsTheStationOnTheLeft) {
  Field field(11);
  for (int i = 0; i < 20000; ++i) {
    const Vector station = field.Point(), p = field.Point(), q = field.Point();
    const bool left = IsLeft(station, p, q);
    const Vector& a = left ? p : q;
    const Vector& b = left ? q : p;
    if (std::fabs(std::sin(AngleBetween(station, a, b))) < 1e-3) continue;
    Vector found;
    ASSERT_TRUE(found.MeasBinding(a, station.GetDistance(a), b, station.GetDistance(b))) << i;
    ASSERT_LT(found.GetDistance(station), 1e-5) << i;
    // The angle at the station from the first point to the second then grows from x to y: this is
    // how a free station tells from its directions which point comes first.
    ASSERT_GT(AngleBetween(station, a, b), 0.0) << i;
  }
}

TEST(VectorMeasBinding, Edges) {
  const Vector a(1000, 2000), b(1010, 2000);
  const struct {
    const char* what;
    double rA, rB;
    bool meets;
    Vector expected;
  } cases[] = {
      {"right triangle", 6, 8, true, {1003.6, 2004.8}},
      {"touching from outside", 4, 6, true, {1004, 2000}},
      {"apart by rounding", 4, 6 - 1e-9, true, {1004, 2000}},
      {"apart by more", 4, 6 - 1e-6, false, {}},
      {"touching, b within", 15, 5, true, {1015, 2000}},
      {"within by rounding", 15, 5 - 1e-9, true, {1015, 2000}},
      {"touching, a within", 5, 15, true, {995, 2000}},
      {"one circle within the other", 30, 5, false, {}},
      {"zero radius", 0, 10, false, {}},
      {"zero radius of b", 10, 0, false, {}},
      {"undefined radius", 10, kUndefined, false, {}},
      {"negative radii", -6, -8, false, {}},
      {"not a number", kNaN, 8, false, {}},
      {"infinite", kInf, kInf, false, {}},
  };
  for (const auto& c : cases) {
    Vector found(1, 2);
    EXPECT_EQ(found.MeasBinding(a, c.rA, b, c.rB), c.meets) << c.what;
    EXPECT_LT(found.GetDistance(c.meets ? c.expected : Vector(1, 2)), 1e-8) << c.what;
  }
  Vector found(1, 2);
  EXPECT_FALSE(found.MeasBinding(a, 5, a, 5));
  EXPECT_FALSE(found.MeasBinding(a, 5, {1000 + 1e-12, 2000}, 5));
  EXPECT_FALSE(found.MeasBinding({1.7e308, 1e307}, 1e308, {1.7e308, 0}, 1e308));
  EXPECT_EQ(found, Vector(1, 2));
}

// The independent judge: walks the circle round b in small steps, and halves the step wherever the
// angle error changes its sign.
std::vector<Vector> SearchSkBindings(const Vector& a, const Vector& b, double rB, double t) {
  const auto at = [&](double arc) { return b + Vector(rB * std::cos(arc), rB * std::sin(arc)); };
  const auto error = [&](double arc) {
    return std::remainder(AngleBetween(at(arc), a, b) - t, kTwoPi);
  };
  constexpr int kSteps = 4000;
  std::vector<Vector> found;
  for (int i = 0; i < kSteps; ++i) {
    double low = kTwoPi * i / kSteps, high = kTwoPi * (i + 1) / kSteps;
    const double errorLow = error(low), errorHigh = error(high);
    if ((errorLow < 0) == (errorHigh < 0) || std::fabs(errorLow - errorHigh) > 1.0) continue;
    for (int k = 0; k < 60; ++k) {
      const double middle = 0.5 * (low + high);
      ((error(middle) < 0) == (errorLow < 0) ? low : high) = middle;
    }
    found.push_back(at(low));
  }
  return found;
}

TEST(VectorMeasSkBinding, FindsWhatASearchFinds) {
  Field field(12);
  int counts[3] = {};
  for (int i = 0; i < 600; ++i) {
    const Vector a = field.Point(), b = field.Point();
    const double base = a.GetDistance(b), rB = field.Number(0.1, 2.0) * base;
    const double t = field.Number(-kPi, kPi);
    if (std::fabs(base - rB) < 0.02 * base) continue;
    if (std::fabs(base - rB * std::fabs(std::sin(t))) < 0.02 * base) continue;
    const std::vector<Vector> expected = SearchSkBindings(a, b, rB, t);
    const SkBindingPoints found = Vector::SkBindingSolutions(a, b, rB, t + kTwoPi);
    ASSERT_EQ(static_cast<std::size_t>(found.count), expected.size()) << i << ' ' << t;
    ++counts[found.count];
    for (const Vector& point : expected) {
      const double miss = std::min(point.GetDistance(found.point[0]),
                                   found.count == 2 ? point.GetDistance(found.point[1]) : kInf);
      ASSERT_LT(miss, 1e-5) << i;
    }
    Vector single;
    ASSERT_EQ(single.MeasSkBinding(a, b, rB, t), !expected.empty());
    for (const Vector& point : expected)
      ASSERT_GE(single.GetDistance(a), point.GetDistance(a) - 1e-5) << i;
  }
  for (const int count : counts) EXPECT_GT(count, 50);
}

TEST(VectorMeasSkBinding, Edges) {
  const Vector a(1000, 2000), b(1010, 2000);
  const struct {
    const char* what;
    double rB, t;
    int count;
    Vector expected;
  } cases[] = {
      {"square, b to the left of a", 10, kPi / 4, 1, {1010, 2010}},
      {"square, b to the right of a", 10, -kPi / 4, 1, {1010, 1990}},
      {"right angle at the station", 6, kHalfPi, 1, {1006.4, 2004.8}},
      {"touching but for rounding", 20 + 1e-8, kPi / 6, 1, {1000, 2000 + std::sqrt(300.0)}},
      {"half a turn: between the two", 4, kPi, 1, {1006, 2000}},
      {"no angle: behind b, short", 4, 0, 1, {1014, 2000}},
      {"no angle: behind b and behind a", 25, 0, 2, {1035, 2000}},
      {"just out of touch", 20 + 1e-6, kPi / 6, 0, {}},
      {"obtuse, b too far", 20, 2.0, 0, {}},
      {"only at a itself", 10, kPi / 2, 0, {}},
      {"zero distance", 0, 1, 0, {}},
      {"negative distance", -5, 1, 0, {}},
      {"undefined distance", kUndefined, 1, 0, {}},
      {"not a number", 5, kNaN, 0, {}},
      {"infinite angle", 5, kInf, 0, {}},
      {"infinite distance", kInf, 1, 0, {}},
  };
  for (const auto& c : cases) {
    Vector found(1, 2);
    EXPECT_EQ(Vector::SkBindingSolutions(a, b, c.rB, c.t).count, c.count) << c.what;
    EXPECT_EQ(found.MeasSkBinding(a, b, c.rB, c.t), c.count > 0) << c.what;
    EXPECT_LT(found.GetDistance(c.count > 0 ? c.expected : Vector(1, 2)), 1e-5) << c.what;
  }
  EXPECT_LT(Vector::SkBindingSolutions(a, b, 25, 0).point[1].GetDistance({985, 2000}), 1e-9);
  Vector found(1, 2);
  EXPECT_FALSE(found.MeasSkBinding(a, a, 5, 1));
  EXPECT_FALSE(found.MeasSkBinding({kInf, 0}, b, 5, 1));
  EXPECT_EQ(found, Vector(1, 2));
}

// Share of the radius by which `p` misses the circle through the other three.
double MissOfCircle(const Vector& p, const Vector& a, const Vector& b, const Vector& c) {
  const Vector u = b - a, v = c - a;
  const double area = 2.0 * u.GetCrossProduct(v);
  const double uu = u.GetScalarProduct(u), vv = v.GetScalarProduct(v);
  const Vector centre((v.y * uu - u.y * vv) / area, (u.x * vv - v.x * uu) / area);
  return std::fabs((p - a - centre).GetLength() / centre.GetLength() - 1.0);
}

TEST(VectorMeasResec, FindsTheStation) {
  Field field(13);
  for (int i = 0; i < 20000; ++i) {
    const Vector s = field.Point(), p = field.Point(), q = field.Point(), r = field.Point();
    if (MissOfCircle(s, p, q, r) < 0.01) continue;
    const double o = field.Number(-20, 20);
    const double a = s.GetDirection(p) + o, b = s.GetDirection(q) + o, c = s.GetDirection(r) + o;
    Vector found;
    ASSERT_TRUE(found.MeasResec(p, a, q, b, r, c)) << i;
    ASSERT_LT(found.GetDistance(s), 1e-4) << i;
    ASSERT_TRUE(found.MeasResec(r, c, p, a, q, b)) << i;
    ASSERT_LT(found.GetDistance(s), 1e-4) << i;
    // Turning one point about half a turn leaves the lines of sight as they were, but nobody stands
    // where the instrument would look backwards.
    ASSERT_FALSE(found.MeasResec(p, a + kPi, q, b, r, c)) << i;
    ASSERT_FALSE(found.MeasResec(p, a, q, b + kPi, r, c)) << i;
    ASSERT_FALSE(found.MeasResec(p, a, q, b, r, c + kPi)) << i;
  }
}

TEST(VectorMeasResec, RefusesTheDangerCircleAndTakesItsNeighbourhood) {
  Field field(14);
  for (int i = 0; i < 2000; ++i) {
    const Vector centre = field.Point();
    const double radius = field.Number(20, 200);
    Vector p[4];
    for (Vector& point : p) point.MeasPolar(centre, {radius, field.Number(0, kTwoPi)});
    bool crowded = false;
    for (int k = 0; k < 4; ++k)
      for (int l = 0; l < k; ++l) crowded = crowded || p[k].GetDistance(p[l]) < 3.0;
    if (crowded) continue;
    const auto resect = [&](const Vector& s, Vector& found) {
      return found.MeasResec(p[0], s.GetDirection(p[0]), p[1], s.GetDirection(p[1]), p[2],
                             s.GetDirection(p[2]));
    };
    Vector found(1, 2);
    ASSERT_FALSE(resect(p[3], found)) << i;
    ASSERT_EQ(found, Vector(1, 2)) << i;
    const Vector inside = centre + (p[3] - centre) * 0.9;
    ASSERT_TRUE(resect(inside, found)) << i;
    ASSERT_LT(found.GetDistance(inside), 1e-3) << i;
  }
}

TEST(VectorMeasResec, Edges) {
  const Vector s(5, 5), p(0, 0), q(10, 0), r(20, 5);
  const auto to = [&](const Vector& v) { return s.GetDirection(v); };
  const struct {
    const char* what;
    Vector p1, p2, p3;
    double a1, a2, a3;
    bool solved;
  } cases[] = {
      {"ordinary", p, q, r, to(p), to(q), to(r), true},
      {"points on one line", p, q, {30, 0}, to(p), to(q), to({30, 0}), true},
      {"two sights in one line", p, {10, 10}, q, to(p), to({10, 10}), to(q), true},
      {"all on one line", {0, 5}, {10, 5}, r, kPi, 0, 0, false},
      {"two points coincide", p, p, r, to(p), to(p), to(r), false},
      {"the others coincide", p, r, r, to(p), to(r), to(r), false},
      {"coincident, seen apart", p, r, r, 0, 1, 2, false},
      {"all coincide", p, p, p, 0, 1, 2, false},
      {"all in the same direction", p, q, r, 1, 1, 1, false},
      {"not a number", p, q, r, to(p), kNaN, to(r), false},
      {"infinite angle", p, q, r, kInf, to(q), to(r), false},
      {"infinite point", p, q, {kInf, 0}, to(p), to(q), to(r), false},
      {"no number in a point", {kNaN, 0}, q, r, to(p), to(q), to(r), false},
  };
  for (const auto& c : cases) {
    Vector found(1, 2);
    EXPECT_EQ(found.MeasResec(c.p1, c.a1, c.p2, c.a2, c.p3, c.a3), c.solved) << c.what;
    EXPECT_LT(found.GetDistance(c.solved ? s : Vector(1, 2)), 1e-12) << c.what;
  }
}

}  // namespace
