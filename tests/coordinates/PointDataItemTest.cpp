#include <cfloat>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/measurements/ItemText.h"

namespace {

using testing::ElementsAre;

constexpr double kHalfPi = 1.5707963267948966;

std::vector<std::string> TextsOf(const PointDataItem& point) {
  return {point.GetPointCode(), point.GetSpecialCode(), point.GetRemark()};
}

PointDataItem WithRemark(const std::string& specialCode, const std::string& remark) {
  return {Vector3d(), "", "", specialCode, remark};
}

TEST(PointDataItem, DefaultsAndConstruction) {
  const PointDataItem empty;
  EXPECT_EQ(empty.GetName(), "");
  EXPECT_THAT(TextsOf(empty), ElementsAre("", "", ""));
  EXPECT_EQ(Vector3d(empty), Vector3d(0, 0, 0));
  EXPECT_EQ(empty.GetType(), PointDataItemType::Ordinary);
  EXPECT_EQ(empty.GetLink(), nullptr);
  EXPECT_EQ(empty.GetVersion(), 0x00020001);
  const PointDataItem point({1, 2, 3}, "P", "code", "R", "12");
  EXPECT_EQ(Vector3d(point), Vector3d(1, 2, 3));
  EXPECT_THAT(TextsOf(point), ElementsAre("code", "R", "12"));
  EXPECT_EQ(point.GetType(), PointDataItemType::Ordinary) << "follows SetSpecialCode alone";
}

TEST(PointDataItem, CopiesTakeAllButTheLink) {
  int thing = 0;
  PointDataItem point({1, 2, 3}, "P", "a", "b", "c");
  point.SetType(PointDataItemType::Radius);
  point.SetLink(&thing);
  GeoAttrib::PutAttribute(&point, "COLOR", "3", false);

  const PointDataItem copy(point);
  PointDataItem assigned({9, 9, 9}, "Q", "", "", "");
  int other = 0;
  assigned.SetLink(&other);
  assigned = point;
  for (const PointDataItem* p : {&copy, static_cast<const PointDataItem*>(&assigned)}) {
    EXPECT_EQ(p->GetName(), "P");
    EXPECT_EQ(Vector3d(*p), Vector3d(1, 2, 3));
    EXPECT_THAT(TextsOf(*p), ElementsAre("a", "b", "c"));
    EXPECT_EQ(p->GetType(), PointDataItemType::Radius);
    EXPECT_EQ(GeoAttrib::GetAttribute(p, "COLOR")->Value, "3");
    EXPECT_NE(GeoAttrib::GetAttribute(p, "COLOR"), GeoAttrib::GetAttribute(&point, "COLOR"));
  }
  EXPECT_EQ(copy.GetLink(), nullptr);
  EXPECT_EQ(assigned.GetLink(), &other) << "a link stays with its point";

  assigned = Vector3d(7, 8, 9);
  EXPECT_EQ(Vector3d(assigned), Vector3d(7, 8, 9));
  EXPECT_EQ(assigned.GetName(), "P");
  EXPECT_THAT(TextsOf(assigned), ElementsAre("a", "b", "c"));
}

TEST(PointDataItem, SwapExchangesCodesAndTypes) {
  PointDataItem a({1, 1, 1}, "A", "a", "", "");
  PointDataItem b({2, 2, 2}, "B", "b", "", "");
  b.SetType(PointDataItemType::Radius);
  a.Swap(b);
  EXPECT_EQ(a.GetPointCode() + b.GetPointCode(), "ba");
  EXPECT_EQ(a.GetType(), PointDataItemType::Radius);
  EXPECT_EQ(b.GetType(), PointDataItemType::Ordinary);
  EXPECT_EQ(a.GetName() + b.GetName(), "AB");
  EXPECT_EQ(a.x, 1);
}

TEST(PointDataItem, ProxiesChangeUpToThreeTexts) {
  const struct {
    const char* what;
    void (*change)(PointDataItem&);
    std::vector<std::string> texts;
  } kCases[] = {
      {"p", [](PointDataItem& p) { p.SetPointCode("P"); }, {"P", "s", "r"}},
      {"s", [](PointDataItem& p) { p.SetSpecialCode("S"); }, {"p", "S", "r"}},
      {"r", [](PointDataItem& p) { p.SetRemark("R"); }, {"p", "s", "R"}},
      {"ps", [](PointDataItem& p) { p.SetPointCode("P").AndSpecialCode("S"); }, {"P", "S", "r"}},
      {"pr", [](PointDataItem& p) { p.SetPointCode("P").AndRemark("R"); }, {"P", "s", "R"}},
      {"sp", [](PointDataItem& p) { p.SetSpecialCode("S").AndPointCode("P"); }, {"P", "S", "r"}},
      {"sr", [](PointDataItem& p) { p.SetSpecialCode("S").AndRemark("R"); }, {"p", "S", "R"}},
      {"rp", [](PointDataItem& p) { p.SetRemark("R").AndPointCode("P"); }, {"P", "s", "R"}},
      {"rs", [](PointDataItem& p) { p.SetRemark("R").AndSpecialCode("S"); }, {"p", "S", "R"}},
      {"psr",
       [](PointDataItem& p) { p.SetPointCode("P").AndSpecialCode("S").AndRemark("R"); },
       {"P", "S", "R"}},
      {"prs",
       [](PointDataItem& p) { p.SetPointCode("P").AndRemark("R").AndSpecialCode("S"); },
       {"P", "S", "R"}},
      {"spr",
       [](PointDataItem& p) { p.SetSpecialCode("S").AndPointCode("P").AndRemark("R"); },
       {"P", "S", "R"}},
      {"srp",
       [](PointDataItem& p) { p.SetSpecialCode("S").AndRemark("R").AndPointCode("P"); },
       {"P", "S", "R"}},
      {"rps",
       [](PointDataItem& p) { p.SetRemark("R").AndPointCode("P").AndSpecialCode("S"); },
       {"P", "S", "R"}},
      {"rsp",
       [](PointDataItem& p) { p.SetRemark("R").AndSpecialCode("S").AndPointCode("P"); },
       {"P", "S", "R"}},
      {"own text", [](PointDataItem& p) { p.SetPointCode(p.GetRemark()); }, {"r", "s", "r"}},
  };
  for (const auto& c : kCases) {
    PointDataItem point(Vector3d(), "", "p", "s", "r");
    const PointDataItem same(point);
    c.change(point);
    EXPECT_EQ(TextsOf(point), c.texts) << c.what;
    EXPECT_THAT(TextsOf(same), ElementsAre("p", "s", "r")) << "a shared triple never changes";
  }
}

TEST(PointDataItem, TheChangeComesAtTheEndOfTheStatement) {
  PointDataItem point;
  {
    const auto proxy = point.SetPointCode("new");
    EXPECT_EQ(point.GetPointCode(), "");
  }
  EXPECT_EQ(point.GetPointCode(), "new");
}

TEST(PointDataItem, EqualTriplesShareOneStore) {
  PointDataItem a(Vector3d(), "A", "code", "", "remark");
  PointDataItem b;
  b.SetPointCode("code").AndRemark("remark");
  EXPECT_EQ(&a.GetPointCode(), &b.GetPointCode());
  b.SetRemark("");
  EXPECT_NE(&a.GetPointCode(), &b.GetPointCode());
  b.SetPointCode("");
  EXPECT_EQ(&b.GetRemark(), &PointDataItem().GetRemark());
}

TEST(PointDataItem, TypeFollowsTheFirstStepAlone) {
  PointDataItem point;
  point.SetPointCode("").AndSpecialCode("R");
  EXPECT_EQ(point.GetType(), PointDataItemType::Ordinary);
  point.SetSpecialCode("r");
  EXPECT_EQ(point.GetType(), PointDataItemType::Ordinary);
  point.SetSpecialCode("RX");
  EXPECT_EQ(point.GetType(), PointDataItemType::Radius);
  point.SetSpecialCode("");
  EXPECT_EQ(point.GetType(), PointDataItemType::Radius) << "never set back";
}

TEST(PointDataItem, RemarksAsNumbers) {
  const struct {
    const char* remark;
    double number;
  } kCases[] = {{"", 0.0},           {"12.5", 12.5},
                {"12,5", 12.5},      {"1 234,5", 1234.5},
                {"1.234,5", 1234.5}, {"1,234.5", 1234.5},
                {"1,234,5", 1.0},    {"-0,25 m", -0.25},
                {"oak", 0.0},        {"1.2.3", 1.2},
                {",5", 0.5},         {"1.234.567,25", 1234567.25},
                {" 7 ", 7.0},        {"1,234,567.25", 1234567.25},
                {"1\t2", 1.0}};
  for (const auto& c : kCases) {
    EXPECT_EQ(WithRemark("", c.remark).GetRemarkAsFloat(), c.number) << c.remark;
  }
}

TEST(PointDataItem, NumbersAsRemarks) {
  const struct {
    double number;
    int decimals;
    const char* remark;
  } kCases[] = {{1234.5, 3, "1234.500"},
                {-0.0004, 3, "-0.000"},
                {2.5, 0, "2"},
                {123456789.123, 4, "123456789.12"},
                {1e15, 2, "100000000000"}};
  for (const auto& c : kCases) {
    PointDataItem point = WithRemark("R", "old");
    point.SetRemarkAsFloat(c.number, c.decimals);
    EXPECT_THAT(TextsOf(point), ElementsAre("", "R", c.remark));
  }
  PointDataItem point = WithRemark("", "1,2,3");
  point.MakeRemarkDecimal();
  EXPECT_EQ(point.GetRemark(), "1.2,3");
}

TEST(PointDataItem, RadiusAndBearing) {
  const struct {
    const char *code, *remark;
    double radius, bearing;
  } kCases[] = {{"R", "12,5", 12.5, kUndefined}, {"B", "100", 0.0, kHalfPi},
                {"RX", "12", 0.0, kUndefined},   {"r", "12", 0.0, kUndefined},
                {"", "12", 0.0, kUndefined},     {"B", "x", 0.0, 0.0}};
  for (const auto& c : kCases) {
    const PointDataItem point = WithRemark(c.code, c.remark);
    EXPECT_EQ(point.GetRadius(), c.radius) << c.code;
    EXPECT_DOUBLE_EQ(point.GetBearing(), c.bearing) << c.code;
    double bearing = 1.0;
    EXPECT_EQ(point.GetBearing(bearing), c.bearing != kUndefined) << c.code;
    EXPECT_DOUBLE_EQ(bearing, c.bearing == kUndefined ? 0.0 : c.bearing) << c.code;
  }
}

TEST(PointDataItem, LineNumbers) {
  const struct {
    const char* name;
    char separator;
    const char *line, *rest;
  } kCases[] = {{"12.1004", '.', "12", "1004"},
                {"a.b.c", '.', "a", "b.c"},
                {"12", '.', "", "12"},
                {".5", '.', "", "5"},
                {"5.", '.', "5", ""},
                {"1-2.3", '-', "1", "2.3"},
                {"", '.', "", ""}};
  for (const auto& c : kCases) {
    PointDataItem point(Vector3d(), c.name, "", "", "");
    EXPECT_EQ(point.GetLineNo(c.separator), c.line) << c.name;
    point.RemoveLineNo(c.separator);
    EXPECT_EQ(point.GetName(), c.rest) << c.name;
  }
}

TEST(PointDataItem, ConnectedPointsAreOfOneLine) {
  const struct {
    const char *a, *b;
    bool areConnected;
  } kCases[] = {{"12.1", "12.2", true}, {"12.1", "12.1.5", true}, {"12.1", "13.1", false},
                {"12", "12.1", false},  {"12.1", "12", false},    {".1", ".2", false},
                {"a.1", "A.1", false},  {"", "", false},          {"12.1", "123.1", false}};
  for (const auto& c : kCases) {
    EXPECT_EQ(PointDataItem(Vector3d(), c.a, "", "", "").ConnectedTo(c.b), c.areConnected)
        << c.a << " " << c.b;
  }
}

TEST(PointDataItem, RowsPutYBeforeX) {
  PointDataItem point({1.5, 2.25, 0.5}, "P", "c", "s", "r");
  const std::string fields = R"("P",2.25,1.5,5.000000000000000e-01,"c","s","r")";
  EXPECT_EQ(FieldsOf(point, 0), fields);
  EXPECT_EQ(FieldsOf(point, 0x00010000), fields) << "the same in all versions";
  const auto read = ItemFrom<PointDataItem>(fields, 0x00010000);
  EXPECT_EQ(Vector3d(read), Vector3d(point));
  EXPECT_EQ(read.GetName(), "P");
  EXPECT_THAT(TextsOf(read), ElementsAre("c", "s", "r"));

  const auto blank = ItemFrom<PointDataItem>("", 0);
  EXPECT_EQ(Vector3d(blank), Vector3d(kUndefined, kUndefined, kUndefined));
  auto unknown = ItemFrom<PointDataItem>("\"\",?,,", 0);
  EXPECT_EQ(unknown.y, DBL_MAX);
  EXPECT_EQ(FieldsOf(unknown, 0), "\"\",?,,,\"\",\"\",\"\"");
}

TEST(PointDataItem, DecimalCommasAreReadAsPoints) {
  const struct {
    const char *code, *given, *read;
  } kCases[] = {{"R", "12,5", "12.5"},  {"C", "1,2,3", "1.2,3"}, {"B", "12,5", "12,5"},
                {"RX", "12,5", "12,5"}, {"", "a,b", "a,b"},      {"R", "12.5", "12.5"}};
  for (const auto& c : kCases) {
    PointDataItem written = WithRemark(c.code, c.given);
    const auto point = ItemFrom<PointDataItem>(FieldsOf(written, 0), 0);
    EXPECT_EQ(point.GetRemark(), c.read) << c.code;
    EXPECT_EQ(point.GetRadius(), written.GetRadius());
  }
}

TEST(PointDataItem, SprintfStream) {
  char buffer[300];
  const PointDataItem plain({150000.25, 6500000.5, kUndefined}, "1", "CODE", "R", "12.5");
  const std::string row = "\t\tPoint \"1\",6500000.5,150000.25,,\"CODE\",\"R\",\"12.5\"\r\n";
  EXPECT_EQ(plain.SprintfStream(buffer, "\t\t"), static_cast<int>(row.size()));
  EXPECT_EQ(buffer, row);
  const PointDataItem quoted({0, 0, 0}, "\"", "\\", "\n\r", "\t");
  quoted.SprintfStream(buffer, "");
  EXPECT_STREQ(buffer, "Point \"\\\"\",0,0,0,\"\\\\\",\"\\n\\r\",\"\\t\"\r\n");
}

TEST(PointDataItem, ThreadsChangePointsOfTheSameCodes) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([] {
      std::vector<PointDataItem> points(20);
      for (int i = 0; i < 100; ++i) {
        for (PointDataItem& point : points) {
          point.SetName(std::to_string(i % 10));
          point.SetPointCode("code " + std::to_string(i % 5)).AndRemark(std::to_string(i % 3));
        }
        const PointDataItem copy(points[0]);
        ASSERT_EQ(copy.GetPointCode(), "code " + std::to_string(i % 5));
        ASSERT_EQ(points[19].GetRemark(), std::to_string(i % 3));
        ASSERT_EQ(points[19].GetName(), std::to_string(i % 10));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
