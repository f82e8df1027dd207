#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/LinFileProxy.h"
#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/alignments/PrfFileProxy.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "tests/support/Roads.h"

namespace {

using Model::Coordinate;
using Model::LineStation;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const std::string kAlignments = KORVELFILE_TEST_DATA "/alignments/";

std::vector<double> Numbers(std::string row) {
  std::replace(row.begin(), row.end(), ',', ' ');
  std::istringstream in(row);
  std::vector<double> numbers;
  for (double number; in >> number;) numbers.push_back(number);
  return numbers;
}

TEST(LineModel, RealAlignmentsAsIntegratedByAnotherProgram) {
  for (const std::string name : {"m3_road", "clothoids"}) {
    LinFile lines;
    PrfFile heights;
    ASSERT_EQ(lines.Open((kAlignments + name + ".lin").c_str()), 0);
    ASSERT_EQ(heights.Open((kAlignments + name + ".prf").c_str()), 0);
    const File::LinFileProxy elements(lines);
    const File::PrfFileProxy profile(heights);
    const auto line = BuildLine(elements, &profile);
    std::ifstream in(kAlignments + name + ".points.csv");
    std::string row;
    std::getline(in, row);
    int count = 0;
    while (std::getline(in, row)) {
      const std::vector<double> n = Numbers(row);  // chainage, north, east, bearing, height
      ASSERT_GE(n.size(), 4U) << row;
      const Coordinate at = line->PointAt(n[0], 0.0);
      EXPECT_NEAR(at.Y, n[1], 3e-5) << name << ' ' << row;
      EXPECT_NEAR(at.X, n[2], 3e-5) << name << ' ' << row;
      const double turn = line->DirectionAt(n[0]) - GonToBearing(n[3]);
      EXPECT_NEAR(std::remainder(turn, kTwoPi), 0.0, 1e-6) << name << ' ' << row;
      EXPECT_TRUE(n.size() < 5 || std::fabs(at.Z - n[4]) < 2e-4) << name << at.Z << row;
      const LineStation station = line->Station({n[1], n[2], 0.0});
      EXPECT_NEAR(station.Arc, n[0], 5e-5) << name << ' ' << row;
      EXPECT_NEAR(station.Offset, 0.0, 5e-5) << name << ' ' << row;
      ++count;
    }
    EXPECT_GT(count, 20) << name;
  }
}

TEST(LineModel, StationAndPointAreInverse) {
  const auto line = BuildLine(MakeRoad(1));
  std::mt19937 random(5);
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int i = 0; i < 20000; ++i) {
    const double arc = between(line->GetStartArc(), line->GetEndArc());
    const double offset = i % 2 == 0 ? 0.0 : between(-12.0, 12.0);
    const LineStation found = line->Station(line->PointAt(arc, offset));
    ASSERT_NEAR(found.Arc, arc, offset == 0.0 ? 1e-9 : 1e-6) << arc << ' ' << offset;
    ASSERT_NEAR(found.Offset, offset, 1e-9) << arc << ' ' << offset;
  }
}

// Up to a metre from the centre of curvature, on each kind of curve by itself: on a road another
// element may be nearer.
TEST(LineModel, StationAndPointAreInverseUpToTheRadius) {
  std::mt19937 random(7);
  const auto share = [&] { return std::uniform_real_distribution<double>()(random); };
  const auto curvature = [](double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; };
  for (const Model::Proxy::LineElement& element : MakeRoad(1).records) {
    LineRecords alone;
    alone.records = {element};
    const auto line = BuildLine(alone);
    for (int i = 0; i < 2000; ++i) {
      const double part = share();
      const double arc = element.Section + part * element.Length;
      const double k = std::lerp(curvature(element.Radius), curvature(element.EndRadius), part);
      const double farthest = std::min(1.0 / std::fabs(k), 1000.0) - 1.0;
      const double offset = std::lerp(-farthest, farthest, share());
      const LineStation found = line->Station(line->PointAt(arc, offset));
      ASSERT_NEAR(found.Arc, arc, 1e-6)
          << element.Radius << ' ' << element.EndRadius << ' ' << offset;
      ASSERT_NEAR(found.Offset, offset, 1e-8) << arc;
    }
  }
}

// The judge goes along the line in small steps, then in ever smaller ones around the least
// distance. It gives the distance, or NaN where an end of the line is nearest, which is no foot.
double LeastDistance(const Model::ILine& line, const Vector& p) {
  const double start = line.GetStartArc();
  const double end = line.GetEndArc();
  const auto distance = [&](double arc) {
    const Coordinate at = line.PointAt(std::clamp(arc, start, end), 0.0);
    return p.GetDistance({at.X, at.Y});
  };
  double best = start;
  for (double arc = start; arc <= end; arc += 1.0)
    if (distance(arc) < distance(best)) best = arc;
  for (double step = 1.0; step > 1e-7; step *= 0.7) {
    for (const double arc : {best - step, best + step})
      if (distance(arc) < distance(best)) best = std::clamp(arc, start, end);
  }
  return best > start && best < end ? distance(best) : kNaN;
}

TEST(LineModel, TheNearestOfAllFeetIsFound) {
  const auto line = BuildLine(MakeRoad(2));
  std::mt19937 random(6);
  int found = 0;
  for (int i = 0; i < 400; ++i) {
    std::uniform_real_distribution<double> arc(line->GetStartArc(), line->GetEndArc());
    std::normal_distribution<double> away(0.0, 60.0);
    const Coordinate near = line->PointAt(arc(random), 0.0);
    const Coordinate point{near.Y + away(random), near.X + away(random), 0.0};
    const double least = LeastDistance(*line, {point.X, point.Y});
    if (std::isnan(least)) continue;
    ASSERT_NEAR(std::fabs(line->Station(point).Offset), least, 1e-6) << i;
    ++found;
  }
  EXPECT_GT(found, 350);
}

TEST(LineModel, CornersEndsAndPointsThatAreNone) {
  LineRecords bend;  // 100 m east, then 100 m north: a corner to the left at (100, 0)
  bend.records = {{L"", {0, 0}, 0.0, 0.0, 0, 0, 100, 0},
                  {L"", {100, 0}, 100.0, kHalfPi, 0, 0, 100, 0}};
  const auto line = BuildLine(bend);
  const struct {
    const char* what;
    Coordinate point;
    bool isFound;
    double arc, offset;
  } cases[] = {
      {"beside the first", {-3, 50, 0}, true, 50, 3},
      {"in the outer angle", {-3, 104, 0}, true, 100, 5},
      {"in the inner angle, nearer to the second", {30, 90, 0}, true, 130, -10},
      {"in the inner angle, as near to both", {10, 90, 0}, true, 90, -10},
      {"on the end", {100, 100, 0}, true, 200, 0},
      {"beyond the end, but beside the first", {101, 70, 0}, true, 70, -101},
      {"beyond both ends", {100.001, -0.001, 0}, false, 0, 0},
      {"no number", {kNaN, 50, 0}, false, 0, 0},
  };
  for (const auto& c : cases) {
    try {
      const LineStation found = line->Station(c.point);
      EXPECT_TRUE(c.isFound) << c.what;
      EXPECT_NEAR(found.Arc, c.arc, 1e-9) << c.what;
      EXPECT_NEAR(found.Offset, c.offset, 1e-9) << c.what;
    } catch (const Model::LineException&) {
      EXPECT_FALSE(c.isFound) << c.what;
    }
  }
  for (const double arc : {-0.01, 200.01, kNaN})
    EXPECT_THROW(line->PointAt(arc, 0.0), Model::LineException) << arc;
  EXPECT_THROW(Model::LineFactory().CreateLine()->Station({0, 0, 0}), Model::LineException);
}

TEST(LineModel, ElementsThatAreNoneAreRefused) {
  const Model::Proxy::LineElement cases[] = {
      {L"", {0, kNaN}, 0, 0, 0, 0, 10, 0},  {L"", {0, 0}, 0, 0, 0, 0, -10, 0},
      {L"", {0, 0}, kNaN, 0, 0, 0, 10, 0},  {L"", {0, 0}, 0, kNaN, 50, 50, 10, 0},
      {L"", {0, 0}, 0, 0, 1, 1, 7, 0},      {L"", {0, 0}, 0, 0, 50, 50, 10, 30},
      {L"", {0, 0}, 0, 0, 0, 50, kNaN, 30},
  };
  for (const auto& element : cases) {
    LineRecords line;
    line.records = {element};
    EXPECT_THROW(BuildLine(line), Model::LineException) << &element - cases;
  }
}

TEST(LineModel, BuiltElementByElement) {
  const auto line = Model::LineFactory().CreateLine();
  const auto elements = line->GetHorizontalAlignment()->GetElements();
  elements->Append(elements->CreateStraight({0, 0, 0}, {10, 0, 0}, line->GetEndArc()), true);
  elements->Append(elements->CreateArc({10, 0, 0}, {15, 5, 0}, 5.0, line->GetEndArc()), true);
  EXPECT_NEAR(line->GetTotalLength(), 10.0 + 2.5 * kPi, 1e-12);
  EXPECT_EQ(elements->IndexAt(10.5), 1);
  const LineStation station =
      line->Station({10.0 + 4.0 / std::sqrt(2.0), 5.0 - 4.0 / std::sqrt(2.0), 0});
  EXPECT_NEAR(station.Arc, 10.0 + 1.25 * kPi, 1e-12);
  EXPECT_NEAR(station.Offset, 1.0, 1e-12) << "inside the arc, which turns right";
  EXPECT_THROW(elements->CreateArc({0, 0, 0}, {0, 11, 0}, 5.0, 0.0), Model::LineException);
  EXPECT_THROW(elements->GetElement(2), Model::LineException);
  LineStation other;
  EXPECT_FALSE(elements->GetElement(0)->Station({12, 1, 0}, other));
}

TEST(LineModel, AClosedLineHasACornerWhereItMeetsItsStart) {
  LineRecords square;  // of 10 m to the left; an element without length closes it
  const Vector corners[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  for (int i = 0; i < 4; ++i)
    square.records.push_back({L"", corners[i], 10.0 * i, kHalfPi * i, 0, 0, 10, 0});
  square.records.push_back({L"", corners[0], 40.0, 1.0, 0, 0, 0, 0});
  const auto line = BuildLine(square);
  EXPECT_EQ(line->GetTotalLength(), 40.0);
  EXPECT_EQ(line->GetHorizontalAlignment()->GetElements()->GetElementCount(), 5);
  const LineStation corner = line->Station({-3, -4, 0});
  EXPECT_NEAR(corner.Arc, 0.0, 1e-12);
  EXPECT_NEAR(corner.Offset, 5.0, 1e-12);
  const Coordinate end = line->PointAt(40.0, 1.0);
  EXPECT_NEAR(end.X, -1.0, 1e-12) << "in the direction of the last side";
  EXPECT_NEAR(end.Y, 0.0, 1e-12);
}

// Notes which operation each element calls.
struct KindVisitor final : Model::IHorizontalElementVisitor,
                           std::enable_shared_from_this<KindVisitor> {
  std::string kinds;
  void VisitElementList(const std::shared_ptr<Model::IHorizontalElementList>& list) override {
    for (int i = 0; i < list->GetElementCount(); ++i)
      list->GetElement(i)->Accept(shared_from_this());
  }
  void VisitStraight(const std::shared_ptr<Model::IHorizontalElement>&) override { kinds += 's'; }
  void VisitCircularArc(const std::shared_ptr<Model::IHorizontalCurve>& e) override {
    kinds += e->GetRadius() == e->GetEndRadius() ? 'a' : '?';
  }
  void VisitClothoid(const std::shared_ptr<Model::IHorizontalCurve>& e) override {
    kinds += e->GetRadius() != e->GetEndRadius() ? 'c' : '?';
  }
  void VisitPoint(const std::shared_ptr<Model::IHorizontalElement>&) override { kinds += '?'; }
  void VisitOther(const std::shared_ptr<Model::IHorizontalElement>&) override { kinds += '?'; }
};

TEST(LineModel, VisitorsMeetTheKindsOfTheElements) {
  const auto visitor = std::make_shared<KindVisitor>();
  BuildLine(MakeRoad(1))->GetHorizontalAlignment()->Accept(visitor);
  EXPECT_EQ(visitor->kinds, "scacacacsa");
}

TEST(LineModel, HeightsAndCrossfalls) {
  LineRecords straight;
  straight.records = {{L"", {0, 0}, 0.0, 0.0, 0, 0, 100, 0}};
  ProfileRecords profile;  // a sag of 1000 m from -2 %, a gap, and a grade
  profile.records = {{L"", 0.0, 50.0, -0.02, 1000.0, 40.0, 0, 0},
                     {L"", 60.0, 51.0, 0.01, 0, 30, 0, 0}};
  CamberRecords camber;
  camber.records = {{10.0, -0.02, 0.02, L""}, {30.0, -0.04, 0.0, L""}};
  const auto line = BuildLine(straight, &profile, &camber);
  // The circle through the start, worked from its centre.
  const double sine = -0.02 / std::hypot(1.0, 0.02);
  const double centreX = -1000.0 * sine;
  const double centreZ = 50.0 + 1000.0 * std::sqrt(1.0 - sine * sine);
  const auto circle = [&](double s) {
    return centreZ - std::sqrt(1e6 - (s - centreX) * (s - centreX));
  };
  for (const double s : {0.0, 20.0, 40.0})
    EXPECT_NEAR(line->PointAt(s, 3.0).Z, circle(s), 1e-9) << s;
  EXPECT_NEAR(line->PointAt(50.0, 0.0).Z, 0.5 * (circle(40.0) + 51.0), 1e-9) << "in the gap";
  EXPECT_NEAR(line->PointAt(70.0, 0.0).Z, 51.1, 1e-12);
  EXPECT_TRUE(IsUndefined(line->PointAt(95.0, 0.0).Z)) << "behind the profile";
  EXPECT_NEAR(line->SurfaceHeightAt(20.0, -3.0), circle(20.0) - 0.09, 1e-9);
  EXPECT_NEAR(line->SurfaceHeightAt(20.0, 3.0), circle(20.0) + 0.03, 1e-9);
  EXPECT_TRUE(IsUndefined(line->SurfaceHeightAt(31.0, 3.0)));
}

TEST(LineModelThreads, ManyStationAtOnce) {
  const auto line = BuildLine(MakeRoad(3));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&line, t] {
      for (double arc = line->GetStartArc() + t; arc < line->GetEndArc(); arc += 5.0)
        EXPECT_NEAR(line->Station(line->PointAt(arc, 2.0)).Arc, arc, 1e-6);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
