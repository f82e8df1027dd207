#include <cfloat>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::string>;

class CoordinateFilesMapTest : public testing::Test {
 protected:
  // A `.geo` file with these free points, and lines as `Line`.
  struct Line {
    std::string name;
    int type;
    Names points;
  };

  void Put(const std::string& name, const Names& points, const std::vector<Line>& lines = {}) {
    PxyCoordinateFile file(false);
    file.ChooseFile(folder_.Path(name).c_str());
    file.InitAndUseCollectorWithoutFuckingDisk();
    double x = 0.0;
    const auto next = [&x] { return (x += 1) * Vector3d(1, 2, 3); };
    for (const std::string& point : points) {
      file.InsertPoint(new PointDataItem(next(), point, "", "", ""), nullptr);
    }
    for (const Line& l : lines) {
      LineDataItem* line = file.CreateLine(l.name, 0);
      line->LineType = static_cast<std::uint8_t>(l.type);
      for (const std::string& point : l.points) line->AddPoint(point, next(), "", "", "");
    }
    ASSERT_EQ(file.AutoSave(), 0);
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

TEST_F(CoordinateFilesMapTest, PointInfoDefaults) {
  const PointInfo info;
  EXPECT_EQ(info.GetRadius(), 0.0);
  EXPECT_EQ(info.GetBearing(), kUndefined);
  EXPECT_EQ(info.GetFileIndex(), 255);
  EXPECT_EQ(info.GetAttributeHolder(), nullptr);
}

TEST_F(CoordinateFilesMapTest, Empty) {
  EXPECT_EQ(map_.GetMaxX(), -DBL_MAX);
  EXPECT_EQ(map_.GetMinZ(), DBL_MAX);
  EXPECT_EQ(Load({}), 2);
  EXPECT_EQ(map_.GetMaxX(), -DBL_MAX) << "no file, no extent";
  EXPECT_EQ(map_.GetProxyType(), 13);
  EXPECT_FALSE(map_.IsForReadOnly());
  EXPECT_EQ(map_.GetGraphicsObject(), &map_);
}

TEST_F(CoordinateFilesMapTest, NamesAndResults) {
  const struct {
    const char* what;
    std::vector<Names> files;
    int result;
    Names names;
  } kCases[] = {
      {"as they stand", {{"1", "2"}}, 0, {"1", "2"}},
      {"trimmed", {{" 12 ", "\t13"}}, 0, {"12", "13"}},
      {"comma", {{"1,5,7"}}, 1, {"1.5.7"}},
      {"two of a name in two files", {{"A"}, {"A"}}, 1, {"A", "A_x2"}},
      {"one counter for all",
       {{"12", "12", "12", "A", "A"}},
       1,
       {"12", "12_x2", "12_x3", "A", "A_x4"}},
      {"names taken before", {{"A", "A_x2", "A"}}, 1, {"A", "A_x2", "A_x3"}},
      {"trimming meets a name", {{"12", "12 "}}, 1, {"12", "12_x2"}},
      {"comma meets a name", {{"1.5", "1,5"}}, 1, {"1.5", "1.5_x2"}},
      {"empty names", {{"", " "}}, 1, {"", "_x2"}},
      {"no points", {{}}, 2, {}},
      {"many",
       {{"a", "b", "c", "d", "e", "f", "g", "h", "i", "a"}, {"j"}},
       1,
       {"a", "b", "c", "d", "e", "f", "g", "h", "i", "a_x2", "j"}},
  };
  for (const auto& c : kCases) {
    Names files;
    for (const Names& points : c.files) {
      files.push_back(std::to_string(files.size()) + ".geo");
      Put(files.back(), points);
    }
    EXPECT_EQ(Load(files), c.result) << c.what;
    EXPECT_EQ(map_.GetPointList(), c.names) << c.what;
    for (const std::string& name : c.names) Info(name);
  }
}

TEST_F(CoordinateFilesMapTest, Lines) {
  Put("a.geo", {"free"},
      {{"L", 0, {"1", "2"}},
       {"C", 1, {"1", "2", "3"}},
       {"single", 1, {"1"}},
       {"none", 0, {}},
       {"L", 0, {"1", "5"}}});
  EXPECT_EQ(Load({"a.geo"}), 1);
  EXPECT_THAT(map_.GetPointList(),
              ElementsAre("free", "L.1", "L.2", "C.1", "C.2", "C.3", "single.1", "L.1_x2", "L.5"));
  EXPECT_THAT(
      map_.GetLineList(),
      ElementsAre(Names{"L.1", "L.2"}, Names{"C.1", "C.2", "C.3", "C.1"}, Names{"L.1_x2", "L.5"}));
  EXPECT_EQ(Info("L.5").GetENH(), Vector3d(9, 18, 27));
}

TEST_F(CoordinateFilesMapTest, Points) {
  WriteBytes(folder_.Path("a.geo"),
             "FileHeader \"KVT Object Text v2.01\"\nbegin\nend\nPointList\nbegin\n"
             "Point \"R\",2,1,3,\"\",\"R\",\"12,5\"\nPoint \"B\",20,10,,\"\",\"B\",\"100\"\nbegin\n"
             "AttributeList\nbegin\nAttribute \"a\",\"b\"\nend\nend\nend\nLineList\n");
  Put("b.llc", {"P"});
  EXPECT_EQ(Load({"a.geo", "b.llc"}), 0);
  const PointInfo radius = Info("R");
  EXPECT_EQ(radius.GetENH(), Vector3d(1, 2, 3));
  EXPECT_EQ(radius.GetRadius(), 12.5);
  EXPECT_EQ(radius.GetBearing(), kUndefined);
  EXPECT_EQ(radius.GetFileIndex(), 0);
  const PointInfo bearing = Info("B");
  EXPECT_DOUBLE_EQ(bearing.GetBearing(), 1.5707963267948966);
  EXPECT_EQ(GeoAttrib::GetAttribute(bearing.GetAttributeHolder(), "a")->Value, "b");
  EXPECT_EQ(Info("P").GetFileIndex(), 1);
  EXPECT_EQ(map_.GetMinX(), 1);
  EXPECT_EQ(map_.GetMaxY(), 20);
  EXPECT_EQ(map_.GetMinZ(), kUndefined) << "counts as the number it is";
  PointInfo unchanged = radius;
  for (const char* name : {"r", " R", "P ", "none", ""}) {
    EXPECT_FALSE(map_.GetPoint(name, unchanged)) << name;
  }
  EXPECT_EQ(unchanged.GetRadius(), 12.5);
}

TEST_F(CoordinateFilesMapTest, FilesThatCannotBeLoaded) {
  Put("a.geo", {"A"});
  Put("b.GEO", {"B"});
  WriteBytes(folder_.Path("bad.geo"), "no header");
  WriteBytes(folder_.Path("c.dxf"), "0\nEOF\n");
  const struct {
    const char* what;
    Names files;
    int result;
    Names loaded, points;
  } kCases[] = {
      {"any case", {"b.GEO"}, 0, {"b.GEO"}, {"B"}},
      {"missing", {"a.geo", "none.geo", "b.GEO"}, 3, {"a.geo", "b.GEO"}, {"A", "B"}},
      {"wrong form", {"bad.geo", "a.geo"}, 3, {"a.geo"}, {"A"}},
      {"unknown", {"a.geo", "a.XYZ"}, 3, {"a.geo"}, {"A"}},
      {"short", {"geo"}, 3, {}, {}},
      {"drawing", {"c.dxf", "a.geo"}, 3, {"a.geo"}, {"A"}},
      {"the same twice", {"a.geo", "a.geo"}, 1, {"a.geo", "a.geo"}, {"A", "A_x2"}},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Load(c.files), c.result) << c.what;
    EXPECT_EQ(map_.GetFileNames(), c.loaded) << c.what;
    EXPECT_EQ(map_.GetPointList(), c.points) << c.what;
    EXPECT_EQ(map_.GetGraphicsObjects().size(), c.loaded.size()) << c.what;
  }
  messages_.Take();
  EXPECT_EQ(map_.LoadFiles({"x"}, L""), 3);
  EXPECT_EQ(map_.LoadFiles({"a.XYZ"}, L""), 3);
  EXPECT_THAT(messages_.Take(), IsEmpty());
}

TEST_F(CoordinateFilesMapTest, FilesAreInUseUntilTheNextLoad) {
  Put("a.geo", {"A"});
  const CoordinateFilesMap loaded({"a.geo"}, Widen(folder_.Path("")));
  EXPECT_THAT(loaded.GetPointList(), ElementsAre("A"));
  Load({"a.geo"});
  const auto object = map_.GetGraphicsObjects().front();
  auto& file = *static_cast<PxyCoordinateFile*>(object->GetGraphicsObject());
  EXPECT_GT(file.size(), 0U);
  Load({});
  EXPECT_TRUE(file.empty()) << "freed";
  EXPECT_THAT(map_.GetPointList(), IsEmpty());
  EXPECT_EQ(file.UnUseCollector(), 1);
}

TEST_F(CoordinateFilesMapTest, CopiesShareOneSet) {
  Put("a.geo", {"A"});
  CoordinateFilesMap copy(map_);
  {
    CoordinateFilesMap shortLived(map_);
    shortLived.LoadFiles({"a.geo"}, Widen(folder_.Path("")));
  }
  PointInfo info;
  ASSERT_TRUE(copy.GetPoint("A", info));
  EXPECT_EQ(info.GetAttributeHolder()->size(), 0U) << "still in use";
  EXPECT_EQ(map_.GetMaxX(), 1.0);
}

TEST_F(CoordinateFilesMapTest, Extent) {
  Put("empty.geo", {});
  EXPECT_EQ(Load({"empty.geo"}), 2);
  EXPECT_EQ(map_.GetMaxX(), 1.0);
  EXPECT_EQ(map_.GetMinY(), 0.0);
  map_.AddPoint("A", {5, 6, 7});
  EXPECT_EQ(map_.GetMaxX(), 5) << "starts anew in an empty map";
  EXPECT_EQ(map_.GetMinX(), 5);
  map_.AddPoint("B", {-1, 10, 7});
  EXPECT_EQ(map_.GetMinX(), -1);
  EXPECT_EQ(map_.GetMaxY(), 10);
  EXPECT_EQ(map_.GetMinZ(), 7);
  map_.SetAdditionalPoint("C", {100, 100, 100});
  EXPECT_EQ(map_.GetMaxX(), 5) << "an additional point leaves it";
}

TEST_F(CoordinateFilesMapTest, AddedPoints) {
  Put("a.geo", {"A", "A"});
  Load({"a.geo"});
  map_.AddPoint("A", {1, 2, 3});
  map_.AddPoint(" B,1 ", {4, 5, 6});
  map_.AddPoint("A", {1, 2, 3});
  EXPECT_THAT(map_.GetPointList(), ElementsAre("A", "A_x2", "A_x3", " B.1 ", "A_x4"));
  const PointInfo info = Info(" B.1 ");
  EXPECT_EQ(info.GetENH(), Vector3d(4, 5, 6));
  EXPECT_EQ(info.GetFileIndex(), 255);
  EXPECT_EQ(info.GetAttributeHolder(), nullptr);
}

TEST_F(CoordinateFilesMapTest, OneAdditionalPoint) {
  Put("a.geo", {"A", "B"});
  Load({"a.geo"});
  EXPECT_EQ(map_.SetAdditionalPoint("A", {1, 1, 1}), "A_x2");
  map_.AddPoint("C", {9, 9, 9});
  EXPECT_EQ(map_.SetAdditionalPoint("A", {2, 2, 2}), "A_x2") << "the first one has gone";
  EXPECT_THAT(map_.GetPointList(), ElementsAre("A", "B", "C", "A_x2"));
  EXPECT_EQ(Info("A_x2").GetENH(), Vector3d(2, 2, 2));
  EXPECT_EQ(Info("C").GetENH(), Vector3d(9, 9, 9));
  EXPECT_EQ(map_.SetAdditionalPoint("D", {3, 3, 3}), "D");
  EXPECT_THAT(map_.GetPointList(), ElementsAre("A", "B", "C", "D"));
  PointInfo gone;
  EXPECT_FALSE(map_.GetPoint("A_x2", gone));

  Put("d.geo", {"D"});
  Load({"d.geo"});
  EXPECT_EQ(map_.SetAdditionalPoint("E", {}), "E");
  EXPECT_THAT(map_.GetPointList(), ElementsAre("D", "E")) << "a point of the new set stays";
}

TEST_F(CoordinateFilesMapTest, RealFiles) {
  const Names files = {"m3_breaklines.geo", "m3_breaklines.pxy"};
  EXPECT_EQ(map_.LoadFiles(files, Widen(KORVELFILE_TEST_DATA "/points/")), 1);
  const Names& names = map_.GetPointList();
  ASSERT_EQ(names.size(), 2U * 5871);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
  EXPECT_EQ(map_.GetLineList().size(), 2U * 175);
  EXPECT_EQ(names.front(), "1.1");
  EXPECT_EQ(names[5871], "1.1_x2");
  EXPECT_EQ(Info("1.1").GetENH(), Vector3d(21531279.279, 6783172.777, 21.172));
  EXPECT_EQ(Info("1.1_x2").GetENH(), Vector3d(531279.279, 6783172.777, 21.172));
  EXPECT_EQ(map_.GetMaxX(), 21531306.207);
}

}  // namespace
