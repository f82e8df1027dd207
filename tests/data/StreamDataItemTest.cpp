#include <memory>
#include <sstream>
#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/StreamDataItem.h"

namespace {

template <class T>
std::string NameIf(DataItemListObject& item, const char* name) {
  return typeid(item) == typeid(T) ? name : "";
}

const Data::ClassToString kNames = {
    [](DataItemListObject& item) {
      return std::string(dynamic_cast<GeoAttrib&>(item).Name == "never" ? "Never" : "");
    },
    [](DataItemListObject& item) { return NameIf<GeoAttrib>(item, "Attribute"); },
    [](DataItemListObject& item) { return NameIf<GeoAttribList>(item, "AttributeList"); },
    [](DataItemListObject& item) { return NameIf<GeoAttribType>(item, "Type"); },
};

std::string Written(DataItemListObject& item, int version = 0x00010003,
                    const std::string& prefix = "") {
  std::ostringstream out;
  Data::StreamDataItem(out, version, kNames, prefix).WriteItem(item);
  return out.str();
}

// A list that isn't an item: neither has it got fields.
class Bare : public DataItemListObject {};

class Childless : public DataItem<Childless>, public DataItemListObject {
 public:
  DataItemListObject* GetItemListObject() override { return nullptr; }
};

TEST(StreamDataItem, WritesATree) {
  GeoAttribList list;
  auto* inner = new GeoAttribList;
  inner->InsertItem(new GeoAttrib("b", "say \"x\""), -1);
  list.InsertItem(new GeoAttrib("a", "1"), -1);
  list.InsertItem(inner, -1);
  list.InsertItem(new GeoAttribList, -1);
  EXPECT_EQ(Written(list, 0, "> "),
            "> AttributeList \r\n"
            "> begin\r\n"
            "> \tAttribute \"a\",\"1\"\r\n"
            "> \tAttributeList \r\n"
            "> \tbegin\r\n"
            "> \t\tAttribute \"b\",\"say \\\"x\\\"\"\r\n"
            "> \tend\r\n"
            "> \tAttributeList \r\n"
            "> end\r\n");
}

TEST(StreamDataItem, HandsTheVersionOn) {
  GeoAttribType type;
  EXPECT_EQ(Written(type, 0x00010001), "Type \"\",\"\",0,0,\"\",\"\",\"\",\"\",0\r\n");
  EXPECT_EQ(Written(type, 0x00010002), "Type \"\",\"\",0,0,\"\",\"\",\"\",\"\",0,0,0,0,0\r\n");
}

TEST(StreamDataItem, Failures) {
  GeoAttribContext unknown;
  try {
    Written(unknown);
    FAIL();
  } catch (const Data::UnregisteredClass& error) {
    EXPECT_STREQ(error.what(), typeid(GeoAttribContext).name());
  }

  GeoAttribList parent;
  parent.InsertItem(new Childless, -1);
  try {
    Written(parent);
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(),
                 "Can not serialize if you don't implement DataItemInterface::GetItemListObject");
  }

  Bare bare;
  std::ostringstream out;
  Data::StreamDataItem writer(out, 0, {[](DataItemListObject&) { return std::string("Bare"); }},
                              "");
  EXPECT_THROW(writer.WriteItem(bare), std::bad_cast);
}

TEST(StreamDataItem, DepthBeyondTheIndentTable) {
  GeoAttribList root;
  DataItemListObject* innermost = &root;
  for (int depth = 0; depth < 20; ++depth) {
    auto* child = new GeoAttribList;
    innermost->InsertItem(child, -1);
    innermost = child;
  }
  const std::string deepest = "\r\n" + std::string(20, '\t') + "AttributeList \r\n";
  EXPECT_NE(Written(root).find(deepest), std::string::npos);
}

}  // namespace
