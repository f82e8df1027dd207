#include <climits>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

TEST(GeoAttrib, PutsAndDeletesByNameInAnyCase) {
  DataItemListObject object;
  GeoAttrib::PutAttribute(&object, "free", -2.5, 0, false);
  GeoAttrib::PutAttribute(&object, "none", 1234.56789, 3, false);
  GeoAttrib::PutAttribute(&object, "NONE", kUndefined, 3, false);
  GeoAttrib::PutIntAttribute(&object, "noint", INT_MAX, false);
  GeoAttrib::PutAttribute(&object, "Free", "second", true);
  GeoAttrib::PutOrDeleteDoubleAttribute(&object, "NoInt", kUndefined, 3);
  GeoAttrib::PutOrDeleteDoubleAttribute(&object, "x", kUndefined, 1);
  std::string values;
  for (const DataItemInterface& item : *GeoAttrib::GetAttribList(&object)) {
    const auto& attribute = dynamic_cast<const GeoAttrib&>(item);
    values += attribute.Name + "=" + attribute.Value + ";";
  }
  EXPECT_EQ(values, "free=-2.500000000000000e+00;none=;Free=second;");
  GeoAttrib::DeleteAttributes(&object, "FREE,missing,none");
  EXPECT_EQ(GeoAttrib::GetAttribute(&object, "FREE")->Value, "second");
  GeoAttrib::DeleteAttribute(&object, "free");
  EXPECT_TRUE(object.empty()) << "the list goes with its last attribute";
}

TEST(GeoAttrib, Dates) {
  const struct {
    double number;
    const char* text;
    GeoDate date;  // second, minute, hour, day, month, year
  } kCases[] = {
      {991231.5, "19991231.500000", {0, 0, 50, 31, 12, 1999}},
      {20190423.153005, "20190423.153005", {5, 30, 15, 23, 4, 2019}},
      {10101.12, "20010101.120000", {0, 0, 12, 1, 1, 2001}},
      {799999, "20799999.000000", {0, 0, 0, 99, 99, 2079}},
      {800000, "19800000.000000", {0, 0, 0, 0, 0, 1980}},
      {1000000, "1000000.000000", {0, 0, 0, 0, 0, 100}},
      {kUndefined, "", {}},
  };
  for (const auto& c : kCases) {
    GeoAttrib attribute;
    attribute.PutDateTimeValue(c.number);
    EXPECT_EQ(attribute.Value, c.text);
    EXPECT_EQ(attribute.GetGeoDateValue(), c.date) << c.text;
  }
  for (const char* absurd : {"1e12", "nan", "-1e300", "inf"}) {
    EXPECT_EQ(GeoAttrib("d", absurd).GetGeoDateValue(), GeoDate()) << absurd;
  }
}

}  // namespace
