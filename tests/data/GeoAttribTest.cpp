#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/FileInfo.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GeoAttribTest : public testing::Test {
 protected:
  std::vector<std::string> Values() const {
    std::vector<std::string> values;
    const GeoAttribList* attributes = GeoAttrib::GetAttribList(&object_);
    if (!attributes) return values;
    for (const DataItemInterface& item : *attributes) {
      const auto& attribute = dynamic_cast<const GeoAttrib&>(item);
      values.push_back(attribute.Name + "=" + attribute.Value);
    }
    return values;
  }

  DataItemListObject object_;
};

TEST_F(GeoAttribTest, FindsTheFirstOfANameWhateverItsCase) {
  EXPECT_EQ(GeoAttrib::GetAttribute(&object_, "A"), nullptr) << "no list";
  EXPECT_EQ(GeoAttrib::GetAttribute(nullptr, "A"), nullptr);
  object_.InsertItem(new FileInfo, -1);
  object_.InsertItem(new GeoAttribList, -1);
  EXPECT_EQ(GeoAttrib::GetAttribute(&object_, "A"), nullptr) << "empty list";
  GeoAttrib::PutAttribute(&object_, "Color", "1", false);
  GeoAttrib::PutAttribute(&object_, "COLOR", "2", true);
  auto* ignored = new GeoAttribList;
  ignored->InsertItem(new GeoAttrib("B", ""), -1);
  object_.InsertItem(ignored, -1);
  EXPECT_EQ(GeoAttrib::GetAttribute(&object_, "color")->Value, "1");
  EXPECT_EQ(GeoAttrib::GetAttribute(&object_, "B"), nullptr) << "only the first list counts";
}

TEST_F(GeoAttribTest, PutsOrAppends) {
  GeoAttrib* first = GeoAttrib::PutAttribute(&object_, "a", "1", false);
  EXPECT_EQ(GeoAttrib::PutAttribute(&object_, "A", "2", false), first);
  EXPECT_NE(GeoAttrib::PutAttribute(&object_, "a", "3", true), first);
  EXPECT_THAT(Values(), ElementsAre("a=2", "a=3"));
  EXPECT_EQ(object_.size(), 1U);
}

TEST_F(GeoAttribTest, PutsNumbers) {
  GeoAttrib::PutAttribute(&object_, "three", 1234.56789, 3, false);
  GeoAttrib::PutAttribute(&object_, "free", -2.5, 0, false);
  GeoAttrib::PutAttribute(&object_, "none", kUndefined, 3, false);
  GeoAttrib::PutAttribute(&object_, "none0", kUndefined, 0, false);
  GeoAttrib::PutIntAttribute(&object_, "int", -12, false);
  GeoAttrib::PutIntAttribute(&object_, "noint", INT_MAX, false);
  EXPECT_THAT(Values(), ElementsAre("three=1234.568", "free=-2.500000000000000e+00",
                                    "none=", "none0=", "int=-12", "noint="));
  GeoAttrib::PutAttribute(&object_, "three", kUndefined, 3, false);
  EXPECT_EQ(GeoAttrib::GetAttribute(&object_, "three")->Value, "");
}

TEST_F(GeoAttribTest, ReadsNumbers) {
  const struct {
    const char* value;
    double number;
    int whole;
  } kCases[] = {{"", kUndefined, INT_MAX}, {"12.75", 12.75, 12},
                {"-3", -3.0, -3},          {"text", 0.0, 0},
                {"1e3", 1000.0, 1},        {"4294967295", 4294967295.0, INT_MAX}};
  for (const auto& c : kCases) {
    const GeoAttrib attribute("n", c.value);
    EXPECT_EQ(attribute.GetDoubleValue(), c.number) << c.value;
    EXPECT_EQ(attribute.GetDateTimeValue(), c.number) << c.value;
    EXPECT_EQ(attribute.GetIntValue(), c.whole) << c.value;
  }
}

TEST_F(GeoAttribTest, Deletes) {
  for (const char* name : {"a", "b", "c", "d"}) GeoAttrib::PutAttribute(&object_, name, "", false);
  GeoAttrib::PutAttribute(&object_, "A", "second", true);
  GeoAttrib::DeleteAttribute(&object_, "A");
  EXPECT_THAT(Values(), ElementsAre("b=", "c=", "d=", "A=second"));
  GeoAttrib::PutOrDeleteDoubleAttribute(&object_, "d", 1.5, 1);
  GeoAttrib::PutOrDeleteDoubleAttribute(&object_, "b", kUndefined, 1);
  GeoAttrib::PutOrDeleteDoubleAttribute(&object_, "x", kUndefined, 1);
  EXPECT_THAT(Values(), ElementsAre("c=", "d=1.5", "A=second"));
  GeoAttrib::DeleteAttributes(&object_, "C,missing,a");
  EXPECT_THAT(Values(), ElementsAre("d=1.5"));
  GeoAttrib::DeleteAttribute(&object_, "d");
  EXPECT_TRUE(object_.empty()) << "the list goes with its last attribute";
}

TEST_F(GeoAttribTest, DeletingAMissingAttributeChangesNothing) {
  object_.InsertItem(new GeoAttribList, -1);
  GeoAttrib::DeleteAttribute(&object_, "x");
  GeoAttrib::PutOrDeleteDoubleAttribute(&object_, "x", kUndefined, 3);
  EXPECT_EQ(object_.size(), 1U) << "an empty list stays";
}

TEST_F(GeoAttribTest, Dates) {
  const struct {
    double number;
    const char* text;
    GeoDate date;  // second, minute, hour, day, month, year
  } kCases[] = {
      {991231.5, "19991231.500000", {0, 0, 50, 31, 12, 1999}},
      {20190315.12, "20190315.120000", {0, 0, 12, 15, 3, 2019}},
      {20190423.153005, "20190423.153005", {5, 30, 15, 23, 4, 2019}},
      {20191231.235959, "20191231.235959", {59, 59, 23, 31, 12, 2019}},
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
  GeoAttrib* put = GeoAttrib::PutDateTimeAttribute(&object_, "Date", 991231.5, false);
  EXPECT_EQ(put->Value, "19991231.500000");
  for (const char* absurd : {"1e12", "nan", "-1e300", "inf"}) {
    EXPECT_EQ(GeoAttrib("d", absurd).GetGeoDateValue(), GeoDate()) << absurd;
  }
}

TEST_F(GeoAttribTest, Rows) {
  char buffer[200];
  GeoAttrib attribute("a", "b c");
  EXPECT_EQ(attribute.SprintfStream(buffer, "\t"), 22);
  EXPECT_STREQ(buffer, "\tAttribute \"a\",\"b c\"\r\n");
  attribute.Value = "\"\\\n\r\t";
  attribute.SprintfStream(buffer, "");
  EXPECT_STREQ(buffer, "Attribute \"a\",\"\\\"\\\\\\n\\r\\t\"\r\n");
}

TEST_F(GeoAttribTest, Colors) {
  EXPECT_EQ(GeoFileColors::GetObjectColor(nullptr), GeoFileColors::ColorUndef);
  EXPECT_EQ(GeoFileColors::GetObjectColor(&object_), 0xFFFFFFFF);
  GeoAttrib::PutAttribute(&object_, "Color", "255", false);
  EXPECT_EQ(GeoFileColors::GetObjectColor(&object_), 255U);
  GeoAttrib::PutAttribute(&object_, "Color", "", false);
  EXPECT_EQ(GeoFileColors::GetObjectColor(&object_), static_cast<unsigned>(INT_MAX));
}

TEST(GeoAttribType, Tokens) {
  const struct {
    const char* list;
    int index;
    const char* token;
  } kCases[] = {{"a,b,c", 0, "a"},   {"a,b,c", 1, "b"}, {"a,b,c", 2, "c"}, {"a,b,c", 3, ""},
                {"a,,c", 1, ""},     {"a,,c", 2, "c"},  {"", 0, ""},       {"", 1, ""},
                {"a, b ", 1, " b "}, {"a,b", -1, ""}};
  for (const auto& c : kCases) {
    GeoAttribType type;
    type.TokenList = c.list;
    EXPECT_EQ(type.GetTokenByIndex(c.index), c.token) << c.list << " " << c.index;
  }
}

}  // namespace
