#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"

namespace {

class SimpleCoordinateFileTest : public testing::Test {
 protected:
  void AddPoint(const std::string& name, double x = 0.0, double y = 0.0) {
    PointDataItem point({x, y, 0}, name, "12345678+", "RX+", "123456789012+");
    EXPECT_TRUE(store_.InsertPoint(&point, 0xFFFFFFFF));
  }

  void AddLine(const std::string& name) {
    LineDataItem line;
    line.SetName(name);
    EXPECT_TRUE(store_.InsertLine(&line));
  }

  // Free points F0, F1, F2; line A of A0, A1; B without points; C of C0, C1, C2; D of D0.
  void Fill() {
    const struct {
      std::string name;
      double x = 0.0, y = 0.0;
    } kRecords[] = {{"F0"},         {"F1"}, {"F2"},        {"A"},        {"A0"},
                    {"A1", 10},     {"B"},  {"C"},         {"C0", 0, 5}, {"C1", 10, 5},
                    {"C2", 10, 15}, {"D"},  {"D0", 5, 2.5}};
    for (const auto& r : kRecords) {
      r.name.size() == 1 ? AddLine(r.name) : AddPoint(r.name, r.x, r.y);
    }
    store_.FinishedReading();
  }

  std::string Point(int kind, int mode, int index = 0) {
    SimpleGeoPt point;
    return store_.GetPoint(point, kind, mode, index) ? point.Name : "-";
  }

  std::string Line(int mode, int index = 0) {
    SimpleGeoLine line;
    return store_.GetLine(line, mode, index) ? line.Name : "-";
  }

  // Each step is f, p or l for free points, points of the line or lines, and a move: < > + - for
  // first, last, next and previous, a digit for an index, ! for none of them.
  std::string Walk(const std::string& steps) {
    const std::map<char, int> moves = {
        {'<', KeeperFirst}, {'>', KeeperLast}, {'+', KeeperNext}, {'-', KeeperPrevious}, {'!', 9}};
    std::string names;
    for (std::size_t i = 0; i + 1 < steps.size(); i += 3) {
      const char kind = steps[i], step = steps[i + 1];
      const int move = moves.contains(step) ? moves.at(step) : KeeperByIndex;
      const int points = kind == 'f' ? KeeperFreePoints : KeeperLinePoints;
      names += (kind == 'l' ? Line(move, step - '0') : Point(points, move, step - '0')) + ' ';
    }
    return names;
  }

  SimpleCoordinateFile store_;
};

TEST_F(SimpleCoordinateFileTest, Cursors) {
  EXPECT_EQ(Walk("f< f+ f0 p< p+ l> l- l0"), "- - - - - - - - ");
  Fill();
  EXPECT_EQ(Walk("f< f- f+ f+ f+ f+ f- f> f0 f3 f/ f! f+"), "F0 - F1 F2 - - F1 F2 F0 - - - F1 ");
  EXPECT_EQ(Walk("p< l- l+ p+ p+ l+ p< l+ p> p1 p3 l4 p- p- l+ l+ p< l1 l- l> l!"),
            "- - A A1 - B - C C2 C1 - - C0 - D - D0 B A D - ");
}

TEST_F(SimpleCoordinateFileTest, LinesNearAPointAndInABox) {
  Fill();
  const struct {
    Vector at;
    double distance;
    std::vector<int> lines;
  } kNear[] = {{{5, 1}, 1.0, {0}},   {{5, 1}, 0.999, {}}, {{5, 2.5}, 2.5, {0, 2}},
               {{11, 10}, 1.0, {2}}, {{-3, 0}, 3.0, {0}}, {{-3, 0}, 2.9, {}},
               {{5, 2.5}, -1.0, {}}, {{5, 2.5}, 2.4, {}}, {{10, 2.5}, 100, {0, 2}}};
  for (const auto& c : kNear) {
    std::vector<int> lines;
    EXPECT_EQ(store_.IsPointNearLine({{c.at.x, c.at.y, 99}}, c.distance, lines), !c.lines.empty());
    EXPECT_EQ(lines, c.lines) << c.at.x << " " << c.at.y;
  }
  const struct {
    Vector a, b;
    std::vector<int> lines;
  } kBoxes[] = {{{4, -1}, {6, 1}, {0}},       {{6, 1}, {4, -1}, {0}},  {{4, 1}, {6, 4}, {}},
                {{-1, -1}, {20, 20}, {0, 2}}, {{9, 9}, {11, 11}, {2}}, {{11, 0}, {12, 20}, {}},
                {{10, -5}, {12, 20}, {0, 2}}, {{0, 0}, {0, 0}, {0}}};
  for (const auto& c : kBoxes) {
    std::vector<int> lines;
    EXPECT_EQ(store_.LineIntersectsBox({{c.a.x, c.a.y, 0}}, {{c.b.x, c.b.y, 0}}, lines),
              !c.lines.empty());
    EXPECT_EQ(lines, c.lines) << c.a.x << " " << c.a.y;
  }
  std::vector collected{7, 2, 0};
  EXPECT_TRUE(store_.IsPointNearLine({{5, 5, 0}}, 0.0, collected));
  EXPECT_EQ(collected, (std::vector{0, 2, 7})) << "sorted, and none twice";
}

TEST_F(SimpleCoordinateFileTest, BlocksGrowAndTextsAreCut) {
  const std::string end(255, 'n');
  for (int i = 0; i < 2001; ++i) AddPoint(std::to_string(i) + end);
  for (int i = 0; i < 201; ++i) AddLine(std::to_string(i) + end);
  store_.FinishedReading();
  SimpleCoordinateFile copy(store_);
  std::swap(copy, store_);
  copy = {};
  for (int i = 0; i < 2001; ++i) {
    ASSERT_EQ(Point(KeeperFreePoints, KeeperByIndex, i), (std::to_string(i) + end).substr(0, 32));
  }
  for (int i = 0; i < 201; ++i) {
    ASSERT_EQ(Line(KeeperByIndex, i), (std::to_string(i) + end).substr(0, 255));
  }
  SimpleGeoPt point;
  ASSERT_TRUE(store_.GetPoint(point, KeeperFreePoints, KeeperFirst, 0));
  EXPECT_EQ(std::string(point.PointCode) + point.SpecialCode + point.Remark,
            "12345678RX123456789012");
}

}  // namespace
