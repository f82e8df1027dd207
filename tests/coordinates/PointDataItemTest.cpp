#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/measurements/ItemText.h"

namespace {

TEST(PointDataItem, CopiesTakeAllButTheLink) {
  PointDataItem point({1, 2, 3}, "P", "a", "b", "c");
  point.SetSpecialCode("R").AndRemark("12");
  point.SetLink(&point);
  GeoAttrib::PutAttribute(&point, "COLOR", "3", false);
  PointDataItem copy(point);
  EXPECT_EQ(copy.GetLink(), nullptr);
  copy.SetLink(&copy);
  copy = point;
  EXPECT_EQ(copy.GetLink(), &copy) << "a link stays with its point";
  point.SetPointCode("Q");
  EXPECT_EQ(FieldsOf(copy, 0), R"("P",2,1,3,"a","R","12")") << "a shared triple never changes";
  EXPECT_EQ(copy.GetType(), PointDataItemType::Radius);
  EXPECT_EQ(GeoAttrib::GetAttribute(&copy, "COLOR")->Value, "3");
  EXPECT_NE(GeoAttrib::GetAttribute(&copy, "COLOR"), GeoAttrib::GetAttribute(&point, "COLOR"));
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
    const PointDataItem point(Vector3d(), "", "", "", c.remark);
    EXPECT_EQ(point.GetRemarkAsFloat(), c.number) << c.remark;
  }
}

TEST(PointDataItem, RadiusAndBearing) {
  const struct {
    const char *code, *remark, *read;
    double radius, bearing;
  } kCases[] = {
      {"R", "12,5", "12.5", 12.5, kUndefined}, {"B", "100", "100", 0.0, 1.5707963267948966},
      {"RX", "12,5", "12,5", 0.0, kUndefined}, {"r", "12", "12", 0.0, kUndefined},
      {"", "a,b", "a,b", 0.0, kUndefined},     {"B", "x,1", "x,1", 0.0, 0.0},
      {"C", "1,2,3", "1.2,3", 0.0, kUndefined}};
  for (const auto& c : kCases) {
    PointDataItem written(Vector3d(), "", "", c.code, c.remark);
    const auto point = ItemFrom<PointDataItem>(FieldsOf(written, 0), 0);
    EXPECT_EQ(point.GetRemark(), c.read) << c.code;
    EXPECT_EQ(written.GetRadius(), c.radius) << c.code;
    EXPECT_EQ(point.GetRadius(), c.radius) << c.code;
    EXPECT_DOUBLE_EQ(point.GetBearing(), c.bearing) << c.code;
  }
}

TEST(PointDataItem, ThreadsChangePointsOfTheSameCodes) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([] {
      PointDataItem points[20];
      for (int i = 0; i < 100; ++i) {
        const std::string name = std::to_string(i % 10), code = "code " + name;
        for (PointDataItem& point : points) {
          point.SetName(name);
          point.SetPointCode(code).AndRemark(name);
        }
        PointDataItem copy(points[i % 20]);
        ASSERT_EQ(FieldsOf(copy, 0), '"' + name + "\",0,0,0,\"" + code + "\",\"\",\"" + name + '"');
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
