#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/MatFunc.h"
#include "korvelfile/outside/base/Polyline.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Chain = std::vector<std::shared_ptr<GeometryInterface>>;

struct Node {
  Vector place;
  double radius = 0.0;  // of the piece that begins here
};

Chain ChainOf(const std::vector<Node>& nodes) {
  Chain chain;
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const Node& from = nodes[i - 1];
    if (from.radius == 0.0) {
      chain.push_back(std::make_shared<Line>(from.place, nodes[i].place));
    } else {
      chain.push_back(std::make_shared<CircleArc>(from.place, nodes[i].place, from.radius, 0, 0));
    }
  }
  return chain;
}

std::vector<Node> NodesOf(const Chain& chain) {
  std::vector<Node> nodes;
  for (const auto& piece : chain) {
    if (const auto* arc = dynamic_cast<const CircleArc*>(piece.get())) {
      nodes.push_back({arc->GetStartPoint(), arc->GetRadius()});
      if (piece == chain.back()) nodes.push_back({arc->GetEndPoint()});
    } else {
      const auto& line = dynamic_cast<const Line&>(*piece);
      nodes.push_back({line.GetStart()});
      if (piece == chain.back()) nodes.push_back({line.GetStart() + line.GetVector()});
    }
  }
  return nodes;
}

TEST(Polyline, ParallelChains) {
  const struct {
    const char* what;
    std::vector<Node> nodes;
    double distance;
    std::vector<Node> expected;
  } cases[] = {
      {"a corner cut", {{{0, 0}}, {{10, 0}}, {{10, -10}}}, 1, {{{0, -1}}, {{9, -1}}, {{9, -10}}}},
      {"a corner lengthened",
       {{{0, 0}}, {{10, 0}}, {{10, -10}}},
       -1,
       {{{0, 1}}, {{11, 1}}, {{11, -10}}}},
      {"a closed square, run clockwise",
       {{{0, 0}}, {{0, 4}}, {{4, 4}}, {{4, 0}}, {{0, 0}}},
       1,
       {{{1, 1}}, {{1, 3}}, {{3, 3}}, {{3, 1}}, {{1, 1}}}},
      {"a straight and a tangent arc to the right",
       {{{0, 0}}, {{10, 0}, 5}, {{15, -5}}},
       2,
       {{{0, -2}}, {{10, -2}, 3}, {{13, -5}}}},
      {"the same to the left",
       {{{0, 0}}, {{10, 0}, 5}, {{15, -5}}},
       -2,
       {{{0, 2}}, {{10, 2}, 7}, {{17, -5}}}},
      {"a vault over a floor, outwards",
       {{{4, 3}, -5}, {{-4, 3}}, {{4, 3}}},
       1,
       {{{std::sqrt(32.0), 2}, -6}, {{-std::sqrt(32.0), 2}}, {{std::sqrt(32.0), 2}}}},
      {"two arcs in a corner, inwards",
       {{{-8, 0}, 5}, {{0, 4}, 5}, {{8, 0}}},
       1,
       {{{-7, 0}, 4}, {{0, std::sqrt(7.0)}, 4}, {{7, 0}}}},
      {"two arcs in a corner, outwards",
       {{{-8, 0}, 5}, {{0, 4}, 5}, {{8, 0}}},
       -1,
       {{{-9, 0}, 6}, {{0, std::sqrt(27.0)}, 6}, {{9, 0}}}},
      {"an empty chain", {}, 1, {}},
  };
  for (const auto& c : cases) {
    bool ok = false;
    const std::vector<Node> found =
        NodesOf(Polyline::GetParallel(ChainOf(c.nodes), c.distance, ok));
    EXPECT_TRUE(ok) << c.what;
    ASSERT_EQ(found.size(), c.expected.size()) << c.what;
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_LT(found[i].place.GetDistance(c.expected[i].place), 1e-12) << c.what << ' ' << i;
      EXPECT_NEAR(found[i].radius, c.expected[i].radius, 1e-12) << c.what << ' ' << i;
    }
  }
}

class OtherKind : public GeometryInterface {
 public:
  int GetType() const override { return 77; }
};

TEST(Polyline, WhatHasNoParallel) {
  Chain withOther = ChainOf({{{0, 0}}, {{1, 0}}});
  withOther.push_back(std::make_shared<OtherKind>());
  const std::vector<Node> vault = {{{5, 0}, -5}, {{-5, 0}}, {{5, 0}}};
  const struct {
    const char* what;
    Chain chain;
    double distance;
  } cases[] = {
      {"radius vanishes", ChainOf({{{0, 0}, 5}, {{5, -5}}}), 5},
      {"radius turns over", ChainOf({{{0, 0}, 5}, {{5, -5}}}), 6},
      {"to the left too", ChainOf({{{0, 0}, -5}, {{5, 5}}}), -5.5},
      {"beyond half a circle", ChainOf(vault), 1},
      {"a piece used up between two corners", ChainOf({{{0, 0}}, {{0, 9}}, {{1, 9}}, {{1, 0}}}), 2},
      {"there and back", ChainOf({{{0, 0}}, {{9, 0}}, {{0, 0}}}), 1},
      {"arcs that part", ChainOf({{{-8, 0}, 5}, {{0, 4}, 5}, {{8, 0}}}), 2.5},
      {"a piece of no length", ChainOf({{{0, 0}}, {{0, 0}}, {{1, 0}}}), 1},
      {"no arc", ChainOf({{{0, 0}, 1}, {{5, 0}}, {{5, 5}, kNaN}, {{9, 9}}}), 0.1},
      {"another kind", withOther, 1},
      {"nothing", {nullptr}, 1},
      {"distance not a number", ChainOf({{{0, 0}}, {{1, 0}}}), kNaN},
  };
  for (const auto& c : cases) {
    bool ok = true;
    EXPECT_TRUE(Polyline::GetParallel(c.chain, c.distance, ok).empty()) << c.what;
    EXPECT_FALSE(ok) << c.what;
  }
}

TEST(MatFunc, StraightLineThroughTwoPoints) {
  EXPECT_EQ(MatFunc::FirstDegree::Value(1.0, 10.0, 3.0, 20.0, 2.5), 17.5);
  EXPECT_EQ(MatFunc::FirstDegree::Value(1.0, 10.0, 3.0, 20.0, -1.0), 0.0);
  EXPECT_EQ(MatFunc::FirstDegree::Value(0.1, 0.3, 0.7, 1e17, 0.1), 0.3);
  EXPECT_EQ(MatFunc::FirstDegree::Value(0.1, 1e17, 0.7, 0.3, 0.7), 0.3);
  EXPECT_EQ(MatFunc::FirstDegree::Value(2.0, 10.0, 2.0, 20.0, 5.0), 15.0);
}

}  // namespace
