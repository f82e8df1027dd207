// The object text form: `.geo` and `.llc`.

#include <cfloat>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/coordinates/RealPoints.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kFailure = -9;
constexpr const char* kInvalid = "Invalid Geo-file format";

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/geo/job.geo");
  return bytes;
}

// A file of version 2.01 with these rows behind its header.
std::string File(const std::string& rows, const std::string& version = "2.01") {
  return "FileHeader \"KVT Object Text v" + version + "\",\"\"\nbegin\nend\n" + rows;
}

std::string WithoutHeader(const std::string& bytes) {
  return bytes.substr(bytes.find("PointList"));
}

class GeoTest : public testing::Test {
 protected:
  GeoTest() { SetGoldenIdentity(); }

  int Read(const std::string& bytes, const std::string& name = "job.geo") {
    path_ = folder_.Path(name);
    WriteBytes(path_, bytes);
    file_.ChooseFile(path_.c_str());
    return file_.UseCollector();
  }

  std::string Written() {
    EXPECT_EQ(file_.AutoSave(), 0);
    return ReadBytes(path_);
  }

  void StartInMemory() {
    path_ = folder_.Path("made.geo");
    file_.ChooseFile(path_.c_str());
    ASSERT_EQ(file_.InitAndUseCollectorWithoutFuckingDisk(), 0);
  }

  // The golden file as an application would make it.
  void Make() {
    StartInMemory();
    file_.GetFileHeader()->SetDescription("road 7, km 3");
    file_.GetFileHeader()->SetInfo("Coordinate System", "local");
    const auto insert = [&](PointDataItem* point) { file_.InsertPoint(point, nullptr); };
    insert(new PointDataItem({150000.25, 6500000.5, 12}, "1001", "FIX", "", ""));
    auto* tree =
        new PointDataItem({150021.75, 6500012.125, kUndefined}, "1002", "TREE", "R", "12.5");
    GeoAttrib::PutAttribute(tree, "COLOR", "3", false);
    GeoAttrib::PutDateTimeAttribute(tree, "Date", 20190423.153005, false);
    insert(tree);
    insert(new PointDataItem({-150000, 6500001, -0.25}, "Gr\xC3\xA4nd 4", "MH", "",
                             "cover \"old\", C:\\7"));
    LineDataItem* line = file_.CreateLine("12", 0);
    line->LineType = 1;
    line->SetCode(L"KERB");
    line->AddPoint("1", 150001, 6500001, 12.345, "K", "R", "25");
    line->AddPoint("2", 150011.5, 6500002.001, 12.5, "K", "", "");
    line->AddPoint("3", 150001, 6500003, 0.00125, "K", "", "");
    file_.CreateLine("13", 0);
    GeoAttrib::PutIntAttribute(&file_, "COLOR", 255, false);
  }

  TempFolder folder_;
  std::string path_;
  CaughtMessages messages_;
  PxyCoordinateFile file_{false};
};

TEST_F(GeoTest, GoldenFileReadsAndWritesByteForByte) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_THAT(messages_.Take(), IsEmpty());
  ASSERT_EQ(file_.size(), 7U);
  EXPECT_EQ(file_.GetFileHeader()->GetInfo("Coordinate System"), "local");
  const auto& tree = dynamic_cast<const PointDataItem&>(file_[2]);
  EXPECT_EQ(Vector3d(tree), Vector3d(150021.75, 6500012.125, kUndefined)) << "y stands before x";
  EXPECT_EQ(tree.GetRadius(), 12.5);
  EXPECT_EQ(tree.GetType(), PointDataItemType::Radius);
  EXPECT_EQ(GeoFileColors::GetObjectColor(&tree), 3U);
  const auto& shaft = dynamic_cast<const PointDataItem&>(file_[3]);
  EXPECT_EQ(shaft.GetRemark(), "cover \"old\", C:\\7");
  EXPECT_EQ(shaft.z, -0.25);
  EXPECT_EQ(shaft.GetType(), PointDataItemType::Ordinary);
  const auto& line = dynamic_cast<const LineDataItem&>(file_[4]);
  EXPECT_EQ(line.LineType, 1);
  EXPECT_EQ(line.GetCode(), L"KERB");
  EXPECT_EQ(line.size(), 3U);
  EXPECT_EQ(dynamic_cast<const LineDataItem&>(file_[5]).size(), 0U);
  EXPECT_TRUE(dynamic_cast<GeoAttribList*>(&file_.back())) << "stands last";
  EXPECT_EQ(Written(), Golden());
}

TEST_F(GeoTest, ItemsMadeInCodeWriteTheGoldenFile) {
  Make();
  EXPECT_EQ(Written(), Golden());
}

TEST_F(GeoTest, GoldenLlcFile) {
  const std::string golden = ReadBytes(KORVELFILE_GOLDEN "/geo/job.llc");
  ASSERT_EQ(Read(golden, "job.llc"), 0);
  EXPECT_EQ(file_.GetProxyType(), 11);
  EXPECT_EQ(Written(), golden);
}

TEST_F(GeoTest, PageOfTheFormatShowsTheGoldenFile) {
  std::string golden = Golden();
  std::erase(golden, '\r');
  EXPECT_THAT(ReadBytes(KORVELFILE_SOURCE "/docs/formats/geo.md"),
              HasSubstr("```\n" + golden + "```\n"));
}

TEST_F(GeoTest, NewFile) {
  path_ = folder_.Path("new.geo");
  file_.ChooseFile(path_.c_str());
  ASSERT_EQ(file_.InitCollector(), 0);
  EXPECT_EQ(WithoutHeader(ReadBytes(path_)), "PointList \r\nLineList \r\nAttributeList \r\n");
  ASSERT_EQ(file_.UseCollector(), 0);
  EXPECT_EQ(file_.size(), 2U);
}

TEST_F(GeoTest, FormsOfAFile) {
  const std::string empty = "PointList \r\nLineList \r\nAttributeList \r\n";
  const struct {
    const char* what;
    std::string rows, written;
  } kCases[] = {
      {"no attribute list", "PointList\nLineList\n", empty},
      {"something else in its place", "PointList\nLineList\nOther\n", empty},
      {"any case, any indentation, empty blocks",
       "  POINTLIST\nbegin\n\t\tend\nlinelist \n  begin\nend\n\tattributelist\nbegin\nend\nrest",
       empty},
      {"blank coordinates",
       "PointList\nbegin\nPoint \"P\",,,\nPoint\nPoint \"Q\",?,0.5\nend\nLineList",
       "PointList \r\nbegin\r\n\tPoint \"P\",,,,\"\",\"\",\"\"\r\n\tPoint "
       "\"\",,,,\"\",\"\",\"\"\r\n"
       "\tPoint \"Q\",?,5.000000000000000e-01,,\"\",\"\",\"\"\r\nend\r\nLineList \r\nAttributeList "
       "\r\n"},
      {"decimal comma of a radius",
       "PointList\nbegin\nPoint \"P\",1,2,3,\"\",\"R\",\"12,5\"\nend\nLineList",
       "PointList \r\nbegin\r\n\tPoint \"P\",1,2,3,\"\",\"R\",\"12.5\"\r\nend\r\nLineList "
       "\r\nAttributeList \r\n"},
      {"line without a block", "PointList\nLineList\nbegin\nLine \"L\"\nend\n",
       "PointList \r\nLineList \r\nbegin\r\n\tLine \"L\",0,\"\"\r\n\tbegin\r\n\t\tPointList "
       "\r\n\tend\r\nend\r\nAttributeList \r\n"},
      {"several lists in a line",
       "PointList\nLineList\nbegin\nLine \"L\"\nbegin\nPointList\nbegin\nPoint \"1\",1,1,1\nend\n"
       "AttributeList\nbegin\nAttribute \"lost\",\"1\"\nend\nPointList\nbegin\nPoint "
       "\"2\",2,2,2\nend\nend\nend\n",
       "PointList \r\nLineList \r\nbegin\r\n\tLine \"L\",0,\"\"\r\n\tbegin\r\n\t\tPointList "
       "\r\n\t\tbegin\r\n\t\t\tPoint \"1\",1,1,1,\"\",\"\",\"\"\r\n\t\t\tPoint "
       "\"2\",2,2,2,\"\",\"\",\"\"\r\n\t\tend\r\n\tend\r\nend\r\nAttributeList \r\n"},
      {"empty attribute list of a point",
       "PointList\nbegin\nPoint \"P\",1,2,3\nbegin\nAttributeList\nend\nend\nLineList\n",
       "PointList \r\nbegin\r\n\tPoint \"P\",1,2,3,\"\",\"\",\"\"\r\n\tbegin\r\n\t\tAttributeList "
       "\r\n\tend\r\nend\r\nLineList \r\nAttributeList \r\n"},
      {"empty block of a point", "PointList\nbegin\nPoint \"P\",1,2,3\nbegin\nend\nend\nLineList\n",
       "PointList \r\nbegin\r\n\tPoint \"P\",1,2,3,\"\",\"\",\"\"\r\nend\r\nLineList "
       "\r\nAttributeList \r\n"},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read(File(c.rows)), 0) << c.what;
    EXPECT_EQ(WithoutHeader(Written()), c.written) << c.what;
    file_.UnUseCollector();
  }
}

TEST_F(GeoTest, AttributesOfALineStayInMemory) {
  ASSERT_EQ(Read(File("PointList\nLineList\nbegin\nLine \"L\"\nbegin\nPointList\nAttributeList\n"
                      "begin\nAttribute \"COLOR\",\"7\"\nend\nend\nend\n")),
            0);
  EXPECT_EQ(GeoFileColors::GetObjectColor(FindFirst<LineDataItem>(file_)), 7U);
  EXPECT_THAT(Written(), Not(HasSubstr("COLOR")));
}

TEST_F(GeoTest, Versions) {
  const std::string rows = "PointList\nbegin\nPoint \"P\",1,2,3\nend\nLineList\n";
  const struct {
    std::string bytes;
    int full, simple;
  } kCases[] = {{File(rows, "2.01"), 0, 0},
                {File(rows, "1.00"), 0, 0},
                {File(rows, "2.02"), kFailure, 0},
                {File(rows, "3"), kFailure, 0},
                {File(rows, "1e99"), kFailure, 0},
                {File(rows, ""), 0, 0},
                {"FileHeader \"other\"\nbegin\nend\n" + rows, 0, 0}};
  for (const auto& c : kCases) {
    EXPECT_EQ(Read(c.bytes), c.full) << c.bytes;
    file_.UnUseCollector();
    PxyCoordinateFile simple(true);
    simple.ChooseFile(path_.c_str());
    EXPECT_EQ(simple.UseCollector(), c.simple) << c.bytes;
  }
}

TEST_F(GeoTest, Refused) {
  const std::string line = "PointList\nLineList\nbegin\nLine \"L\"\nbegin\n";
  const struct {
    const char* what;
    std::string bytes;
    int faultLine;
    bool hasStore = true;  // a read-only reading gets past the header
  } kCases[] = {
      {"empty", "", 0, false},
      {"no header", "PointList\nLineList\n", 1, false},
      {"header without block", "FileHeader \"KVT Object Text v2.01\"\nPointList\n", 2, false},
      {"no point list", File("LineList\n"), 4},
      {"no line list", File("PointList\nAttributeList\n"), 5},
      {"ends behind the point list", File("PointList\n"), 4},
      {"foreign row among points", File("PointList\nbegin\nPoint2 \"P\"\nend\nLineList\n"), 6},
      {"point behind the list", File("PointList\nPoint \"P\"\nLineList\n"), 5},
      {"foreign block of a point", File("PointList\nbegin\nPoint\nbegin\nPoint\nend\nend\n"), 8},
      {"foreign attribute",
       File("PointList\nbegin\nPoint\nbegin\nAttributeList\nbegin\nAttributes\nend\n"), 10},
      {"foreign row among lines", File("PointList\nLineList\nbegin\nPoint\nend\n"), 7},
      {"foreign block of a line", File(line + "AttributeList\nend\nend\n"), 9},
      {"foreign attribute of a line", File(line + "PointList\nAttributeList\nbegin\nX\n"), 12},
      {"foreign attribute of the file", File("PointList\nLineList\nAttributeList\nbegin\nPoint\n"),
       8},
  };
  for (const auto& c : kCases) {
    for (const bool isReadOnly : {false, true}) {
      PxyCoordinateFile file(isReadOnly);
      WriteBytes(folder_.Path("bad.geo"), c.bytes);
      file.ChooseFile(folder_.Path("bad.geo").c_str());
      messages_.Take();
      EXPECT_EQ(file.UseCollector(), kFailure) << c.what;
      EXPECT_EQ(messages_.Take().back(), kInvalid) << c.what;
      EXPECT_EQ(file.GetFaultLine(), c.faultLine) << c.what;
      EXPECT_EQ(file.GetDataHolder() != nullptr, isReadOnly && c.hasStore) << c.what;
      EXPECT_EQ(file.UnUseCollector(), 1) << c.what;
    }
  }
}

TEST_F(GeoTest, WhatWasReadBeforeAFaultStaysUntilTheNextReading) {
  EXPECT_EQ(Read(File("PointList\nbegin\nPoint \"P\",1,2,3\nPoint \"Q\",1,2,3\nend\nOops\n")),
            kFailure);
  ASSERT_EQ(file_.size(), 3U);
  EXPECT_EQ(file_[1].GetName() + file_[2].GetName(), "PQ");
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_EQ(file_.size(), 7U);
}

TEST_F(GeoTest, LastGoodCopyStaysWithoutAHeader) {
  ASSERT_EQ(Read(Golden()), 0);
  file_.DeleteItem(file_.GetFileHeader());
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("File Header missing: ", path_));
  EXPECT_EQ(ReadBytes(path_), Golden());
}

TEST_F(GeoTest, DataIsWrittenThoughTheAttributeListIsMissing) {
  ASSERT_EQ(Read(Golden()), 0);
  file_.DeleteItem(FindFirst<GeoAttribList>(file_));
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("Failed to write Attributelist: ", path_));
  EXPECT_EQ(ReadBytes(path_), Golden().substr(0, Golden().rfind("AttributeList")));
}

TEST_F(GeoTest, CutOffWithinTheLinesCountsAsComplete) {
  const std::size_t lines = Golden().find("LineList");
  for (std::size_t size = 0; size < Golden().size(); size += 5) {
    const int result = Read(Golden().substr(0, size));
    ASSERT_TRUE(result == kFailure || (result == 0 && size > lines)) << size;
    if (result != 0) continue;
    ASSERT_EQ(file_.GetItem(1)->GetName(), "1001") << size;
    ASSERT_TRUE(FindFirst<GeoAttribList>(file_)) << size;
    file_.UnUseCollector();
  }
  messages_.Take();
  ASSERT_EQ(Read(Golden().substr(0, Golden().find("\t\t\tPoint \"3\""))), 0);
  EXPECT_THAT(messages_.Take(), ElementsAre(AllOf(HasSubstr("cut off"), EndsWith("line 30"))))
      << "told once";
  EXPECT_EQ(FindFirst<LineDataItem>(file_)->size(), 2U);
}

TEST_F(GeoTest, MangledFilesAreReadOrRefused) {
  PrintedRandom random(4711);
  for (int i = 0; i < 500; ++i) {
    std::string bytes = Golden();
    for (std::size_t hits = 1 + random.Below(4); hits > 0; --hits) {
      bytes[random.Below(bytes.size())] = static_cast<char>(random.Below(256));
    }
    const int result = Read(bytes);
    ASSERT_TRUE(result == 0 || result == kFailure) << i;
    PxyCoordinateFile simple(true);
    simple.ChooseFile(path_.c_str());
    // Only the version is looked at by one reader alone.
    ASSERT_TRUE(simple.UseCollector() == result || result == kFailure) << i;
    if (result != 0 || i % 4 != 0) {
      file_.UnUseCollector();
      continue;
    }
    const std::string once = Written();
    file_.UnUseCollector();
    ASSERT_EQ(Read(once), 0) << i;
    ASSERT_EQ(Written(), once) << i;
    file_.UnUseCollector();
  }
}

TEST_F(GeoTest, ReadOnlyStore) {
  WriteBytes(folder_.Path("s.geo"), Golden());
  PxyCoordinateFile simple(true);
  simple.ChooseFile(folder_.Path("s.geo").c_str());
  ASSERT_EQ(simple.UseCollector(), 0);
  ASSERT_EQ(simple.size(), 2U) << "header and the file's attributes";
  EXPECT_EQ(GeoFileColors::GetObjectColor(&simple), 255U);
  auto& store = dynamic_cast<SimpleCoordinateFile&>(*simple.GetDataHolder());
  EXPECT_EQ(store.GetFileColor(), 255U);
  EXPECT_EQ(store.GetPointCount(), 6);
  ASSERT_EQ(store.GetLineCount(), 2);
  const unsigned kColours[] = {0xFFFFFFFF, 3, 0xFFFFFFFF};
  for (int i = 0; i < 3; ++i) {
    SimpleGeoPt point;
    ASSERT_TRUE(store.GetPoint(point, KeeperFreePoints, KeeperByIndex, i));
    EXPECT_EQ(point.Colour, kColours[i]);
  }
  SimpleGeoLine line;
  ASSERT_TRUE(store.GetLine(line, KeeperFirst, 0));
  EXPECT_STREQ(line.Name, "12");
  EXPECT_STREQ(line.Code, "KERB");
  EXPECT_TRUE(line.Closed);
  EXPECT_EQ(line.Extent, Rect(150001, 6500003, 150011.5, 6500001));
  CooPtData point;
  ASSERT_TRUE(store.GetPoint(point, KeeperLinePoints, KeeperFirst, 0));
  EXPECT_EQ(point.Radius, 25.0);
}

TEST_F(GeoTest, ColoursInTheReadOnlyStore) {
  const std::string colour = "AttributeList\nbegin\nAttribute \"Color\",\"5\"\nend\n";
  const std::string points = "PointList\nbegin\nPoint \"1\",1,1,1\nend\n";
  WriteBytes(folder_.Path("s.geo"),
             File("PointList\nLineList\nbegin\nLine \"A\"\nbegin\n" + points + colour +
                  "end\nLine \"B\"\nbegin\n" + points + "end\nend\n"));
  PxyCoordinateFile simple(true);
  simple.ChooseFile(folder_.Path("s.geo").c_str());
  ASSERT_EQ(simple.UseCollector(), 0);
  EXPECT_EQ(simple.size(), 1U) << "no attribute list is made up";
  auto& store = dynamic_cast<SimpleCoordinateFile&>(*simple.GetDataHolder());
  EXPECT_EQ(store.GetFileColor(), 0xFFFFFFFF);
  SimpleGeoLine line;
  ASSERT_TRUE(store.GetLine(line, KeeperFirst, 0));
  EXPECT_EQ(line.Colour, 5U);
  ASSERT_TRUE(store.GetLine(line, KeeperNext, 0));
  EXPECT_EQ(line.Colour, 0xFFFFFFFF) << "its own, not that of the line before";
}

TEST_F(GeoTest, RealFile) {
  _GHAL::SetIdentity({L"converter", L"1.0", L"", L"", L""});
  const std::string bytes = ReadBytes(KORVELFILE_TEST_DATA "/points/m3_breaklines.geo");
  ASSERT_EQ(Read(bytes), 0);
  RealPoints::ExpectIn(file_, 0.0);
  EXPECT_EQ(Written(), bytes);
  PxyCoordinateFile simple(true);
  simple.ChooseFile(path_.c_str());
  ASSERT_EQ(simple.UseCollector(), 0);
  RealPoints::ExpectInStore(*simple.GetDataHolder(), 0.0);
}

// Texts of any bytes and numbers of any kind come back; numbers to 15 digits.
TEST_F(GeoTest, AnyTextAndNumberComesBack) {
  PrintedRandom random(4711);
  StartInMemory();
  for (int i = 0; i < 300; ++i) {
    file_.InsertPoint(
        new PointDataItem({random.AnyDouble(), random.AnyDouble(), static_cast<double>(i) / 1000},
                          random.Bytes(20), random.Text(5, "\"\\\n\r\tx, "), "", random.Bytes(8)),
        nullptr);
  }
  const std::string once = Written();
  PxyCoordinateFile again(false);
  again.ChooseFile(path_.c_str());
  ASSERT_EQ(again.UseCollector(), 0);
  for (std::size_t i = 0; i < 300; ++i) {
    const auto& given = dynamic_cast<const PointDataItem&>(file_[i + 2]);
    const auto& read = dynamic_cast<const PointDataItem&>(again[i + 1]);
    ASSERT_EQ(read.GetName(), given.GetName());
    ASSERT_EQ(read.GetPointCode(), given.GetPointCode());
    ASSERT_EQ(read.GetRemark(), given.GetRemark());
    ASSERT_EQ(read.z, given.z);
  }
  again.AutoSave();
  EXPECT_EQ(ReadBytes(path_), once);
}

}  // namespace
