#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using Names = std::vector<std::string>;

class CoordinateFilesMapTest : public testing::Test {
 protected:
  // A `.geo` file with these points and lines.
  void Put(const std::string& name, const Names& points, const std::string& lines = "") {
    WriteBytes(folder_.Path(name), "FileHeader \"KVT Object Text v2.01\"\nbegin\nend\n" +
                                       PointList(points) + "LineList\nbegin\n" + lines + "end\n");
  }

  static std::string Line(const std::string& head, const Names& points) {
    return "Line " + head + "\nbegin\n" + PointList(points) + "end\n";
  }

  // A point is a name or all fields.
  static std::string PointList(const Names& points) {
    std::string rows = "PointList\nbegin\n";
    for (const std::string& point : points) {
      const bool isName = point.find('"') == std::string::npos;
      rows += isName ? "Point \"" + point + "\",2,1,3\n" : "Point " + point + "\n";
    }
    return rows + "end\n";
  }

  CoordinateFilesMap::LoadResult Load(const Names& files) {
    return map_.LoadFiles(files, Widen(folder_.Path("")));
  }

  PointInfo Info(const std::string& name) {
    PointInfo info;
    EXPECT_TRUE(map_.GetPoint(name, info)) << name;
    return info;
  }

  TempFolder folder_;
  CaughtMessages messages_;
  CoordinateFilesMap map_;
};

TEST_F(CoordinateFilesMapTest, NamesAndResults) {
  const struct {
    Names first, second;
    int result;
    Names names;
  } kCases[] = {
      {{"1", "2"}, {" 12 ", "\t13"}, 0, {"1", "2", "12", "13"}},
      {{"1,5,7"}, {}, 1, {"1.5.7"}},
      {{"A"}, {"A"}, 1, {"A", "A_x2"}},
      {{"12", "12", "12", "A", "A"}, {}, 1, {"12", "12_x2", "12_x3", "A", "A_x4"}},
      {{"A", "A_x2", "A"}, {}, 1, {"A", "A_x2", "A_x3"}},
      {{"12", "12 "}, {}, 1, {"12", "12_x2"}},
      {{"1.5", "1,5"}, {}, 1, {"1.5", "1.5_x2"}},
      {{"", " "}, {}, 1, {"", "_x2"}},
      {{}, {}, 2, {}},
  };
  for (const auto& c : kCases) {
    Put("1.geo", c.first);
    Put("2.geo", c.second);
    EXPECT_EQ(Load({"1.geo", "2.geo"}), c.result);
    EXPECT_EQ(map_.GetPointList(), c.names);
    for (const std::string& name : c.names) Info(name);
  }
}

TEST_F(CoordinateFilesMapTest, PointsAndLines) {
  Put("a.geo", {"free"},
      Line("\"L\"", {"1", "2"}) + Line("\"C\",1", {"1", "2", "3"}) + Line("\"single\",1", {"1"}));
  Put("b.LLC", {R"("R",2,4,3,"","R","12,5")", R"("B",20,10,,"","B","100")"},
      Line("\"L\"", {"1", "5"}));
  EXPECT_EQ(Load({"a.geo", "b.LLC"}), 1);
  EXPECT_THAT(map_.GetPointList(), ElementsAre("free", "L.1", "L.2", "C.1", "C.2", "C.3",
                                               "single.1", "R", "B", "L.1_x2", "L.5"));
  EXPECT_THAT(
      map_.GetLineList(),
      ElementsAre(Names{"L.1", "L.2"}, Names{"C.1", "C.2", "C.3", "C.1"}, Names{"L.1_x2", "L.5"}));
  EXPECT_EQ(Info("R").GetENH(), Vector3d(4, 2, 3));
  EXPECT_EQ(Info("R").GetRadius(), 12.5);
  EXPECT_EQ(Info("R").GetBearing(), kUndefined);
  EXPECT_EQ(Info("R").GetFileIndex(), 1);
  EXPECT_DOUBLE_EQ(Info("B").GetBearing(), 1.5707963267948966);
  EXPECT_EQ(map_.GetMinX(), 1);
  EXPECT_EQ(map_.GetMaxY(), 20);
  EXPECT_EQ(map_.GetMinZ(), kUndefined) << "counts as the number it is";
  PointInfo info;
  for (const char* name : {"r", " R", "R ", ""}) EXPECT_FALSE(map_.GetPoint(name, info)) << name;
  CoordinateFilesMap(map_).LoadFiles({}, L"");
  EXPECT_THAT(map_.GetPointList(), ElementsAre()) << "copies share one set";
}

TEST_F(CoordinateFilesMapTest, FilesThatCannotBeLoaded) {
  Put("a.geo", {"A"});
  WriteBytes(folder_.Path("bad.geo"), "no header");
  WriteBytes(folder_.Path("c.dxf"), "0\nEOF\n");
  for (const char* bad : {"none.geo", "bad.geo", "a.XYZ", "geo", "c.dxf"}) {
    EXPECT_EQ(Load({bad, "a.geo"}), 3) << bad;
    EXPECT_THAT(map_.GetFileNames(), ElementsAre("a.geo")) << bad;
    EXPECT_THAT(map_.GetPointList(), ElementsAre("A")) << bad;
  }
}

TEST_F(CoordinateFilesMapTest, AddedPoints) {
  Put("a.geo", {"A", "B"});
  Load({"a.geo"});
  EXPECT_EQ(map_.SetAdditionalPoint("A", {1, 1, 1}), "A_x2");
  map_.AddPoint(" C,1 ", {9, 9, 9});
  EXPECT_EQ(map_.SetAdditionalPoint("A", {20, 2, 2}), "A_x2") << "the first one has gone";
  EXPECT_THAT(map_.GetPointList(), ElementsAre("A", "B", " C.1 ", "A_x2"));
  EXPECT_EQ(Info("A_x2").GetENH(), Vector3d(20, 2, 2));
  EXPECT_EQ(Info(" C.1 ").GetFileIndex(), 255);
  EXPECT_EQ(map_.GetMaxX(), 9) << "an additional point leaves it";
  EXPECT_EQ(map_.SetAdditionalPoint("D", {3, 3, 3}), "D");
  PointInfo gone;
  EXPECT_FALSE(map_.GetPoint("A_x2", gone));

  Put("d.geo", {"D"});
  Load({"d.geo"});
  EXPECT_EQ(map_.SetAdditionalPoint("E", {}), "E");
  EXPECT_THAT(map_.GetPointList(), ElementsAre("D", "E")) << "a point of the new set stays";
}

}  // namespace
