#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/StreamDataItem.h"

namespace {

TEST(StreamDataItem, WritesATreeBeyondTheIndentTable) {
  std::ostringstream out;
  const Data::ClassToString names = {
      [](DataItemListObject& item) {
        return std::string(dynamic_cast<GeoAttrib*>(&item) ? "Attribute" : "");
      },
      [](DataItemListObject& item) {
        return std::string(dynamic_cast<GeoAttribList*>(&item) ? "List" : "");
      }};
  Data::StreamDataItem writer(out, 0x00010003, names, "> ");
  GeoAttribList root;
  std::string begins = "> List \r\n", ends;
  DataItemListObject* innermost = &root;
  for (int depth = 0; depth < 20; ++depth) {
    auto* child = new GeoAttribList;
    innermost->InsertItem(child, -1);
    innermost = child;
    const std::string indent = "> " + std::string(static_cast<std::size_t>(depth), '\t');
    begins += indent + "begin\r\n" + indent + "\tList \r\n";
    ends.insert(0, indent + "end\r\n");
  }
  innermost->InsertItem(new GeoAttrib("a", "say \"x\""), -1);
  const std::string indent = "> " + std::string(20, '\t');
  begins += indent + "begin\r\n" + indent + "\tAttribute \"a\",\"say \\\"x\\\"\"\r\n";
  writer.WriteItem(root);
  EXPECT_EQ(out.str(), begins + indent + "end\r\n" + ends);
  GeoAttribContext unknown;
  EXPECT_THROW(writer.WriteItem(unknown), Data::UnregisteredClass);
}

}  // namespace
