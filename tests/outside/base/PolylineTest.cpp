#include <cmath>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/MatFunc.h"
#include "korvelfile/outside/base/Polyline.h"

namespace {

using Chain = std::vector<std::shared_ptr<GeometryInterface>>;

// Of nodes "x y radius", the radius that of the piece which begins there; the last has none.
Chain ChainOf(const std::string& nodes) {
  Chain chain;
  std::istringstream in(nodes);
  Vector from, to;
  double radius = 0.0;
  in >> from.x >> from.y;
  while (in >> radius >> to.x >> to.y) {
    if (radius == 0.0) chain.push_back(std::make_shared<Line>(from, to));
    if (radius != 0.0) chain.push_back(std::make_shared<CircleArc>(from, to, radius, 0, 0));
    from = to;
  }
  return chain;
}

std::vector<double> NumbersOf(const Chain& chain) {
  std::vector<double> numbers;
  for (const auto& piece : chain) {
    const auto* arc = dynamic_cast<const CircleArc*>(piece.get());
    const auto* line = dynamic_cast<const Line*>(piece.get());
    const Vector start = arc ? arc->GetStartPoint() : line->GetStart();
    const Vector end = arc ? arc->GetEndPoint() : line->GetEnd();
    numbers.insert(numbers.end(), {start.x, start.y, end.x, end.y, arc ? arc->GetRadius() : 0.0});
  }
  return numbers;
}

constexpr const char* kNone = "none";

TEST(Polyline, ParallelChains) {
  const struct {
    const char *what, *nodes;
    double distance;
    const char* expected;
  } cases[] = {
      {"corner cut", "0 0 0 10 0 0 10 -10", 1, "0 -1 0 9 -1 0 9 -10"},
      {"corner lengthened", "0 0 0 10 0 0 10 -10", -1, "0 1 0 11 1 0 11 -10"},
      {"closed", "0 0 0 0 4 0 4 4 0 4 0 0 0 0", 1, "1 1 0 1 3 0 3 3 0 3 1 0 1 1"},
      {"tangent arc", "0 0 0 10 0 5 15 -5", 2, "0 -2 0 10 -2 3 13 -5"},
      {"the same to the left", "0 0 0 10 0 5 15 -5", -2, "0 2 0 10 2 7 17 -5"},
      {"vault", "4 3 -5 -4 3 0 4 3", 1, "5.656854249492 2 -6 -5.656854249492 2 0 5.656854249492 2"},
      {"two arcs", "-8 0 5 0 4 5 8 0", 1, "-7 0 4 0 2.645751311065 4 7 0"},
      {"two arcs outwards", "-8 0 5 0 4 5 8 0", -1, "-9 0 6 0 5.196152422707 6 9 0"},
      {"two arcs that part", "-8 0 5 0 4 5 8 0", 2.5, kNone},
      {"an empty chain", "", 1, ""},
      {"radius vanishes", "0 0 5 5 -5", 5, kNone},
      {"radius turns over", "0 0 -5 5 5", -5.5, kNone},
      {"beyond half a circle", "5 0 -5 -5 0 0 5 0", 1, kNone},
      {"a piece used up between two corners", "0 0 0 0 9 0 1 9 0 1 0", 2, kNone},
      {"there and back", "0 0 0 9 0 0 0 0", 1, kNone},
      {"a piece of no length", "0 0 0 0 0 0 1 0", 1, kNone},
      {"no arc", "0 0 1 5 0 0 5 5", 0.1, kNone},
      {"distance not a number", "0 0 0 1 0", std::nan(""), kNone},
  };
  for (const auto& c : cases) {
    bool ok = c.expected == kNone;
    const auto found = NumbersOf(Polyline::GetParallel(ChainOf(c.nodes), c.distance, ok));
    const auto expected = NumbersOf(ChainOf(c.expected));
    EXPECT_EQ(ok, c.expected != kNone) << c.what;
    ASSERT_EQ(found.size(), expected.size()) << c.what;
    for (std::size_t i = 0; i < found.size(); ++i)
      EXPECT_NEAR(found[i], expected[i], 1e-11) << c.what << ' ' << i;
  }
  bool ok = true;
  EXPECT_TRUE(Polyline::GetParallel({nullptr}, 1, ok).empty() && !ok);
}

TEST(MatFunc, StraightLineThroughTwoPoints) {
  EXPECT_EQ(MatFunc::FirstDegree::Value(1.0, 10.0, 3.0, 20.0, 2.5), 17.5);
  EXPECT_EQ(MatFunc::FirstDegree::Value(0.1, 1e17, 0.7, 0.3, 0.7), 0.3);
  EXPECT_EQ(MatFunc::FirstDegree::Value(2.0, 10.0, 2.0, 20.0, 5.0), 15.0);
}

}  // namespace
