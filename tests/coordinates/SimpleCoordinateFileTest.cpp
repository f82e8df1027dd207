#include <cfloat>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned kNoColour = 0xFFFFFFFF;
constexpr int kFirst = KeeperFirst, kLast = KeeperLast, kNext = KeeperNext;
constexpr int kPrevious = KeeperPrevious, kAt = KeeperByIndex;

class SimpleCoordinateFileTest : public testing::Test {
 protected:
  void AddPoint(const std::string& name, double x = 0.0, double y = 0.0) {
    PointDataItem point({x, y, 0}, name, "", "", "");
    EXPECT_TRUE(store_.InsertPoint(&point, kNoColour));
  }

  void AddLine(const std::string& name, std::uint8_t type = 0) {
    LineDataItem line;
    line.SetName(name);
    line.LineType = type;
    EXPECT_TRUE(store_.InsertLine(&line));
  }

  // Free points F0, F1, F2; line A of A0, A1; line B without points; line C of C0, C1, C2.
  void Fill() {
    for (const char* name : {"F0", "F1", "F2"}) AddPoint(name);
    AddLine("A", 1);
    AddPoint("A0", 0, 0);
    AddPoint("A1", 10, 0);
    AddLine("B");
    AddLine("C");
    AddPoint("C0", 0, 5);
    AddPoint("C1", 10, 5);
    AddPoint("C2", 10, 15);
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

  SimpleCoordinateFile store_;
};

TEST_F(SimpleCoordinateFileTest, RecordDefaults) {
  const SimpleGeoPt point;
  EXPECT_EQ(point.Position, Vector3d(DBL_MAX, DBL_MAX, DBL_MAX));
  EXPECT_EQ(point.Colour, kNoColour);
  EXPECT_STREQ(point.Name, "");
  const SimpleGeoLine line;
  EXPECT_EQ(line.FirstPoint, -1);
  EXPECT_EQ(line.PointCount, 0);
  EXPECT_FALSE(line.Closed);
  EXPECT_EQ(line.Extent, Rect());
  EXPECT_EQ(line.Colour, kNoColour);
  EXPECT_EQ(store_.GetProxyType(), 20);
  EXPECT_TRUE(store_.IsForReadOnly());
  EXPECT_EQ(store_.GetGraphicsObject(), &store_);
}

TEST_F(SimpleCoordinateFileTest, EmptyStore) {
  for (const int mode : {kFirst, kLast, kNext, kPrevious, kAt}) {
    EXPECT_EQ(Point(KeeperFreePoints, mode), "-") << mode;
    EXPECT_EQ(Point(KeeperLinePoints, mode), "-") << mode;
    EXPECT_EQ(Line(mode), "-") << mode;
  }
  CooPtData point;
  EXPECT_FALSE(store_.GetPointInLine(point, -1, 0));
  std::vector<int> lines{5, 2};
  EXPECT_FALSE(store_.IsPointNearLine(point, 1e9, lines));
  EXPECT_THAT(lines, ElementsAre(5, 2)) << "left alone";
  EXPECT_FALSE(store_.InsertPoint(nullptr, 0));
  EXPECT_FALSE(store_.InsertLine(nullptr));
  EXPECT_EQ(store_.GetPointCount() + store_.GetLineCount(), 0);
}

TEST_F(SimpleCoordinateFileTest, PointCursor) {
  Fill();
  const struct {
    int kind, mode, index;
    const char* point;
  } kSteps[] = {{0, kFirst, 0, "F0"},    {0, kPrevious, 0, "-"}, {0, kNext, 0, "F1"},
                {0, kNext, 0, "F2"},     {0, kNext, 0, "-"},     {0, kNext, 0, "-"},
                {0, kPrevious, 0, "F1"}, {0, kLast, 0, "F2"},    {0, kAt, 0, "F0"},
                {0, kAt, 3, "-"},        {0, kAt, -1, "-"},      {0, kNext, 0, "F1"},
                {0, 5, 0, "-"},          {0, -1, 0, "-"},        {1, kFirst, 0, "-"},
                {3, kFirst, 0, "-"},     {2, kFirst, 0, "-"},    {0, kNext, 0, "F2"}};
  int number = 0;
  for (const auto& s : kSteps) EXPECT_EQ(Point(s.kind, s.mode, s.index), s.point) << number++;
}

TEST_F(SimpleCoordinateFileTest, LineCursor) {
  Fill();
  EXPECT_EQ(Line(kPrevious), "-");
  EXPECT_EQ(Line(kNext), "A") << "before the first at first";
  EXPECT_EQ(Point(2, kNext), "A1") << "the point cursor stands on the line's first point";
  EXPECT_EQ(Point(2, kNext), "-");
  EXPECT_EQ(Line(kNext), "B");
  EXPECT_EQ(Point(2, kFirst), "-") << "no points";
  EXPECT_EQ(Line(kNext), "C");
  EXPECT_EQ(Point(2, kLast), "C2");
  EXPECT_EQ(Point(2, kAt, 1), "C1") << "counted from the line's first";
  EXPECT_EQ(Point(2, kAt, 3), "-");
  EXPECT_EQ(Line(kNext), "-");
  EXPECT_EQ(Point(2, kPrevious), "C0") << "a failed move moves nothing";
  EXPECT_EQ(Point(2, kPrevious), "-");
  EXPECT_EQ(Line(kAt, 1), "B");
  EXPECT_EQ(Line(kAt, 3), "-");
  EXPECT_EQ(Line(kPrevious), "A");
  EXPECT_EQ(Line(kLast), "C");
  EXPECT_EQ(Line(9), "-");
}

TEST_F(SimpleCoordinateFileTest, LineRecords) {
  Fill();
  SimpleGeoLine line;
  ASSERT_TRUE(store_.GetLine(line, kAt, 2));
  EXPECT_EQ(line.FirstPoint, 5);
  EXPECT_EQ(line.PointCount, 3);
  EXPECT_FALSE(line.Closed);
  EXPECT_EQ(line.Extent, Rect(0, 15, 10, 5));
  ASSERT_TRUE(store_.GetLine(line, kAt, 0));
  EXPECT_TRUE(line.Closed);
  ASSERT_TRUE(store_.GetLine(line, kAt, 1));
  EXPECT_EQ(line.PointCount, 0);
  EXPECT_EQ(line.Extent, Rect(DBL_MAX, -DBL_MAX, -DBL_MAX, DBL_MAX));
  CooLineData data;
  ASSERT_TRUE(store_.GetLine(data, kAt, 2));
  EXPECT_EQ(data.Name, L"C");
  EXPECT_EQ(data.Index, 2);
}

TEST_F(SimpleCoordinateFileTest, ColoursBelongToTheOpenLine) {
  AddLine("A");
  AddPoint("1");
  store_.InsertLineColor(7);
  AddLine("B");
  AddPoint("1");
  store_.InsertLineColor(kNoColour);
  store_.SetFileColor(9);
  store_.FinishedReading();
  SimpleGeoLine line;
  ASSERT_TRUE(store_.GetLine(line, kFirst, 0));
  EXPECT_EQ(line.Colour, 7U);
  ASSERT_TRUE(store_.GetLine(line, kNext, 0));
  EXPECT_EQ(line.Colour, kNoColour);
  EXPECT_EQ(store_.GetFileColor(), 9U);
}

TEST_F(SimpleCoordinateFileTest, TextsAreCutToTheirFields) {
  const std::string ramp = "0123456789012345678901234567890123456789";
  PointDataItem given({1, 2, 3}, ramp, ramp, ramp, ramp);
  store_.InsertPoint(&given, 5);
  SimpleGeoPt point;
  ASSERT_TRUE(store_.GetPoint(point, 0, kFirst, 0));
  EXPECT_EQ(point.Name, ramp.substr(0, 32));
  EXPECT_EQ(point.PointCode, ramp.substr(0, 8));
  EXPECT_EQ(point.SpecialCode, ramp.substr(0, 2));
  EXPECT_EQ(point.Remark, ramp.substr(0, 12));
  EXPECT_EQ(point.Position, Vector3d(1, 2, 3));
  EXPECT_EQ(point.Colour, 5U);
  LineDataItem line;
  line.SetName(std::string(300, 'n'));
  line.SetCode(std::wstring(300, L'c'));
  store_.InsertLine(&line);
  SimpleGeoLine record;
  ASSERT_TRUE(store_.GetLine(record, kFirst, 0));
  EXPECT_EQ(record.Name, std::string(255, 'n'));
  EXPECT_EQ(record.Code, std::string(255, 'c'));
}

TEST_F(SimpleCoordinateFileTest, BlocksFillAndGrow) {
  constexpr int kPoints = 2001;
  for (int i = 0; i < kPoints; ++i) AddPoint(std::to_string(i), i);
  for (int i = 0; i < 201; ++i) {
    AddLine("L" + std::to_string(i));
    AddPoint("P" + std::to_string(i));
  }
  store_.FinishedReading();
  EXPECT_EQ(store_.GetPointCount(), kPoints + 201);
  int count = 0;
  for (std::string name = Point(0, kFirst); name != "-"; name = Point(0, kNext)) {
    ASSERT_EQ(name, std::to_string(count++));
  }
  EXPECT_EQ(count, kPoints);
  for (const int i : {0, 99, 100, 200}) {
    EXPECT_EQ(Line(kAt, i), "L" + std::to_string(i));
    EXPECT_EQ(Point(2, kFirst), "P" + std::to_string(i));
  }
}

TEST_F(SimpleCoordinateFileTest, RadiusOfAPoint) {
  const struct {
    const char *code, *remark;
    double radius;
  } kCases[] = {{"R", "12.5", 12.5}, {"RX", "7", 7.0}, {"r", "7", 0.0},
                {"", "7", 0.0},      {"R", "x", 0.0},  {"R", "12,5", 12.0}};
  int index = 0;
  for (const auto& c : kCases) {
    PointDataItem point(Vector3d(1, 2, 3), "", "", c.code, c.remark);
    store_.InsertPoint(&point, kNoColour);
    CooPtData data;
    ASSERT_TRUE(store_.GetPoint(data, 0, kAt, index));
    EXPECT_EQ(data.Radius, c.radius) << c.code;
    EXPECT_EQ(data.Position, Vector3d(1, 2, 3));
    ASSERT_TRUE(store_.GetPointInLine(data, -1, index++));
    EXPECT_EQ(data.Radius, c.radius) << c.code;
  }
}

TEST_F(SimpleCoordinateFileTest, PointInLineMovesNoCursor) {
  Fill();
  Line(kFirst);
  const struct {
    int line, index;
    std::optional<Vector> at;
  } kCases[] = {{-1, 2, Vector(0, 0)},
                {-1, 3, {}},
                {-1, -1, {}},
                {-2, 0, {}},
                {0, 1, Vector(10, 0)},
                {0, 2, {}},
                {1, 0, {}},
                {2, 2, Vector(10, 15)},
                {2, 3, {}},
                {2, -1, {}},
                {3, 0, {}}};
  for (const auto& c : kCases) {
    CooPtData point;
    EXPECT_EQ(store_.GetPointInLine(point, c.line, c.index), c.at.has_value())
        << c.line << " " << c.index;
    EXPECT_EQ(point.Position.GetXY(), c.at.value_or(Vector())) << c.line << " " << c.index;
  }
  EXPECT_EQ(Point(2, kNext), "A1");
}

TEST_F(SimpleCoordinateFileTest, PointsNearLines) {
  Fill();
  const struct {
    double x, y, distance;
    std::vector<int> lines;
  } kCases[] = {{5, 1, 1.0, {0}},   {5, 1, 0.999, {}},     {5, 2.5, 2.5, {0, 2}},
                {11, 10, 1.0, {2}}, {-3, 0, 3.0, {0}},     {-3, 0, 2.9, {}},
                {5, 2.5, -1.0, {}}, {10, 2.5, 100, {0, 2}}};
  for (const auto& c : kCases) {
    std::vector<int> lines;
    EXPECT_EQ(store_.IsPointNearLine({{c.x, c.y, 99}}, c.distance, lines), !c.lines.empty());
    EXPECT_EQ(lines, c.lines) << c.x << " " << c.y;
  }
  std::vector<int> collected{7, 2, 0};
  EXPECT_TRUE(store_.IsPointNearLine({{5, 5, 0}}, 0.0, collected));
  EXPECT_THAT(collected, ElementsAre(0, 2, 7)) << "sorted, and none twice";
}

TEST_F(SimpleCoordinateFileTest, LinesInABox) {
  Fill();
  const struct {
    Vector a, b;
    std::vector<int> lines;
  } kCases[] = {{{4, -1}, {6, 1}, {0}},       {{6, 1}, {4, -1}, {0}},  {{4, 1}, {6, 4}, {}},
                {{-1, -1}, {20, 20}, {0, 2}}, {{9, 9}, {11, 11}, {2}}, {{11, 0}, {12, 20}, {}},
                {{10, -5}, {12, 20}, {0, 2}}, {{0, 0}, {0, 0}, {0}}};
  for (const auto& c : kCases) {
    std::vector<int> lines;
    EXPECT_EQ(store_.LineIntersectsBox({{c.a.x, c.a.y, 0}}, {{c.b.x, c.b.y, 0}}, lines),
              !c.lines.empty());
    EXPECT_EQ(lines, c.lines) << c.a.x << " " << c.a.y;
  }
  std::vector<int> collected{9, 3};
  EXPECT_FALSE(store_.LineIntersectsBox({{90, 90, 0}}, {{91, 91, 0}}, collected));
  EXPECT_THAT(collected, ElementsAre(3, 9));
}

TEST_F(SimpleCoordinateFileTest, SinglePointIsNoLine) {
  AddLine("L");
  AddPoint("1", 5, 5);
  store_.FinishedReading();
  std::vector<int> lines;
  EXPECT_FALSE(store_.IsPointNearLine({{5, 5, 0}}, 10.0, lines));
  EXPECT_FALSE(store_.LineIntersectsBox({{0, 0, 0}}, {{9, 9, 0}}, lines));
  EXPECT_THAT(lines, IsEmpty());
}

TEST_F(SimpleCoordinateFileTest, CopiesHaveRecordsOfTheirOwn) {
  Fill();
  SimpleCoordinateFile copy(store_);
  SimpleCoordinateFile assigned;
  assigned = store_;
  store_ = SimpleCoordinateFile();
  for (SimpleCoordinateFile* file : {&copy, &assigned}) {
    SimpleGeoPt point;
    ASSERT_TRUE(file->GetPoint(point, 0, kLast, 0));
    EXPECT_STREQ(point.Name, "F2");
    EXPECT_EQ(file->GetLineCount(), 3);
    PointDataItem late(Vector3d(), "late", "", "", "");
    EXPECT_TRUE(file->InsertPoint(&late, 0));
  }
  EXPECT_EQ(store_.GetPointCount(), 0);
}

}  // namespace
