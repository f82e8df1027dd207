#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/coordinates/FileContents.h"
#include "tests/measurements/ItemText.h"
#include "tests/support/ItemFileTest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kDateAt = 23, kDateSize = 10;  // in a `.pxy` file

// With the date of the golden files if it is a file of fixed columns.
std::string Dated(std::string bytes) {
  if (bytes.starts_with("XYZ")) bytes.replace(kDateAt, kDateSize, "2019-04-23");
  return bytes;
}

std::string Golden(const std::string& extension) {
  const std::string folder = extension == "geo" || extension == "llc" ? "/geo/" : "/pxy/";
  return ReadBytes(KORVELFILE_GOLDEN + folder + "job." + extension);
}

std::string PxyHeader() { return Golden("pxy").substr(0, 2 * internal::kPxyLineSize); }

// Object text of this version with these rows, each ended by a bar, behind its header.
std::string Geo(std::string rows, const std::string& version = "2.01") {
  std::replace(rows.begin(), rows.end(), '|', '\n');
  return "FileHeader \"KVT Object Text v" + version + "\",\"\"\nbegin\nend\n" + rows;
}

struct PxyCoordinateFileTest : ItemFileTest<PxyCoordinateFile> {
  PxyCoordinateFileTest() : ItemFileTest("", false) {}

  int Read(const std::string& name, const std::string& bytes, PxyCoordinateFile& file) {
    path_ = folder_.Path(name);
    return ItemFileTest::Read(bytes, file);
  }
  int Read(const std::string& name, const std::string& bytes) { return Read(name, bytes, file_); }
  std::string Written() { return Dated(ItemFileTest::Written()); }

  PxyCoordinateFile simple_{true};
};

TEST_F(PxyCoordinateFileTest, GoldenFilesStandOnTheirPagesAndReadAndWriteByteForByte) {
  const std::pair<std::string, std::string> kFilesAndPages[] = {
      {"geo", "geo.md"}, {"pxy", "pxy.md"}, {"tun", "pxy.md"}, {"llc", ""}};
  for (const auto& [extension, page] : kFilesAndPages) {
    std::string golden = Golden(extension);
    ASSERT_EQ(Read("a." + extension, golden), 0);
    EXPECT_THAT(messages_.Take(), testing::IsEmpty());
    EXPECT_EQ(Written(), golden);
    if (!page.empty()) ExpectOnPage(page, golden);
  }
}

TEST_F(PxyCoordinateFileTest, TheExtensionRulesTheFormOfOneFileAfterAnother) {
  const struct {
    const char *name, *form;
    bool isReadOnly;
    int result, proxyType;
  } kCases[] = {{"a.geo", "geo", false, 0, 0},        {"a.GEO", "geo", true, 0, 20},
                {"a.llc", "geo", false, 0, 11},       {"a.Llc", "geo", true, 0, 11},
                {"a.pxy", "pxy", false, 0, 0},        {"a.Pxy", "pxy", true, 0, 20},
                {"a.tun", "pxy", false, 0, 0},        {"a.TUN", "pxy", true, 0, 20},
                {"a.geo", "pxy", false, kFailure, 0}, {"a.llc", "geo", true, 0, 11},
                {"a.txt", "geo", false, kFailure, 0}, {"a.geo.bak", "geo", false, kFailure, 0},
                {"nodot", "geo", false, kFailure, 0}};
  for (const auto& c : kCases) {
    PxyCoordinateFile& file = c.isReadOnly ? simple_ : file_;
    EXPECT_EQ(Read(c.name, Golden(c.form), file), c.result) << c.name;
    EXPECT_EQ(file.GetProxyType(), c.proxyType) << c.name;
    EXPECT_EQ(file.GetDataHolder() != nullptr, c.proxyType == 20) << c.name;
  }
}

TEST_F(PxyCoordinateFileTest, FailedSavesTellAndKeepTheLastGoodCopy) {
  for (const std::string extension : {"geo", "pxy"}) {
    const std::string path = folder_.Path("none/a." + extension);
    file_.ChooseFile(path.c_str());
    file_.InitAndUseCollectorWithoutFuckingDisk();
    EXPECT_EQ(file_.AutoSave(), kFailure);
    const bool isGeo = extension == "geo";
    EXPECT_THAT(messages_.Take(),
                ElementsAre(isGeo ? "can't create geo-file!" : "can't open pxy-file!", path));
    file_.UnUseCollector();
    const std::string golden = Golden(extension);
    ASSERT_EQ(Read("a." + extension, golden, simple_), 0);
    EXPECT_EQ(simple_.AutoSave(), kFailure) << "its list lacks the points";
    EXPECT_THAT(messages_.Take(), ElementsAre("File is open for reading only: ", path_));
    EXPECT_EQ(ReadBytes(path_), golden);
    simple_.UnUseCollector();
    EXPECT_EQ(simple_.InitCollector(), 0) << "a new file may be made";
    EXPECT_NE(ReadBytes(path_), golden);
  }
  ASSERT_EQ(Read("a.geo", Golden("geo")), 0);
  file_.DeleteItem(file_.GetFileHeader());
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("File Header missing: ", path_));
  EXPECT_EQ(ReadBytes(path_), Golden("geo"));
}

TEST_F(PxyCoordinateFileTest, NewFilesCarryTheDateOfToday) {
  path_ = folder_.Path("new.pxy");
  file_.ChooseFile(path_.c_str());
  const std::string before = DatedToday(PxyHeader());
  ASSERT_EQ(file_.InitCollector(), 0);
  EXPECT_THAT(ReadBytes(path_), testing::AnyOf(before, DatedToday(PxyHeader()))) << "midnight";
}

TEST_F(PxyCoordinateFileTest, ThreadsReadAndWriteTheRealFilesAtOnce) {
  _GHAL::SetIdentity({L"converter", L"1.0", L"", L"", L""});
  std::vector<std::thread> threads;
  for (const std::string name : {"1.geo", "2.pxy", "3.geo", "4.pxy"}) {
    threads.emplace_back([this, name] {
      const std::string extension = name.substr(2), path = folder_.Path(name);
      const double eastOffset = extension == "geo" ? 0.0 : RealPoints::kPxyEastOffset;
      const auto bytes = ReadBytes(KORVELFILE_TEST_DATA "/points/m3_breaklines." + extension);
      WriteBytes(path, bytes);
      PxyCoordinateFile file(false), simple(true);
      file.ChooseFile(path.c_str());
      ASSERT_EQ(file.UseCollector(), 0);
      EXPECT_EQ(file.AutoSave(), 0);
      EXPECT_EQ(Dated(ReadBytes(path)), Dated(bytes));
      simple.ChooseFile(path.c_str());
      ASSERT_EQ(simple.UseCollector(), 0);
      RealPoints::ExpectInStore(*simple.GetDataHolder(), eastOffset);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_F(PxyCoordinateFileTest, CutOffAndMangledFilesAreReadOrRefused) {
  const std::string geo = Golden("geo");
  ASSERT_EQ(Read("a.geo", geo), 0);
  ExpectReadOrRefused(geo, geo.find("LineList") + 8);
  PrintedRandom random(4711);
  for (const std::string name : {"a.geo", "a.pxy"}) {
    const std::string golden = Golden(name.substr(2));
    for (std::size_t i = 0; i < golden.size(); ++i) {
      const bool isPxy = name == "a.pxy";
      const int cutOff = isPxy ? Read(name, golden.substr(0, i)) : 0;
      ASSERT_EQ(cutOff, isPxy && i <= internal::kPxyLineSize ? kFailure : 0) << i;
      const std::string bytes = random.Mangled(golden);
      const int result = Read(name, bytes);
      ASSERT_TRUE(result == 0 || !isPxy) << i;
      // Only the version is looked at by one reader alone.
      ASSERT_TRUE(Read(name, bytes, simple_) == result || result == kFailure) << i;
    }
  }
  messages_.Take();
  ASSERT_EQ(Read("a.geo", geo.substr(0, geo.find("\t\t\tPoint \"3\""))), 0);
  EXPECT_THAT(messages_.Take(),
              ElementsAre(testing::AllOf(HasSubstr("cut off"), testing::EndsWith("line 30"))));
  EXPECT_EQ(Outline(file_), "1001 1002 Gr\xC3\xA4nd 4 12{1 2}") << "what was there is kept";
  ASSERT_EQ(Read("a.pxy", "one line\r\n"), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("Bogus pxy-file!"));
}

TEST_F(PxyCoordinateFileTest, FormsOfObjectText) {
  const std::string noAttributes = "AttributeList |", noLines = "LineList |" + noAttributes;
  const struct {
    std::string rows, written;
  } kCases[] = {
      {"  POINTLIST|begin|\t\tend|linelist |  begin|end|\tattributelist|begin|end|rest",
       "PointList |" + noLines},
      {"PointList|LineList|begin|Line \"L\"|end|",
       "PointList |LineList |begin|Line \"L\",0,\"\"|begin|PointList |end|end|" + noAttributes},
      {"PointList|LineList|begin|Line \"L\"|begin|PointList|begin|Point \"1\"|end|AttributeList|"
       "begin|Attribute \"lost\",\"1\"|end|PointList|begin|Point \"2\"|end|end|end|",
       "PointList |LineList |begin|Line \"L\",0,\"\"|begin|PointList |begin|"
       "Point \"1\",,,,\"\",\"\",\"\"|Point \"2\",,,,\"\",\"\",\"\"|end|end|end|" +
           noAttributes},
      {"PointList|begin|Point|begin|AttributeList|end|Point \"Q\",?,0.5|begin|end|end|LineList|",
       "PointList |begin|Point \"\",,,,\"\",\"\",\"\"|begin|AttributeList |end|"
       "Point \"Q\",?,5.000000000000000e-01,,\"\",\"\",\"\"|end|" +
           noLines},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read("a.geo", Geo(c.rows)), 0) << c.rows;
    std::string written = Written();
    written.erase(0, written.find("PointList"));
    std::erase_if(written, [](char byte) { return byte == '\r' || byte == '\t'; });
    std::replace(written.begin(), written.end(), '\n', '|');
    EXPECT_EQ(written, c.written);
  }
}

TEST_F(PxyCoordinateFileTest, RefusedObjectText) {
  const std::string rows = "PointList|LineList|", line = rows + "begin|Line \"L\"|begin|";
  const struct {
    std::string bytes;
    int faultLine;
    int readOnlyResult = kFailure;
  } kCases[] = {
      {"", 0},
      {"PointList\nLineList\n", 1},
      {"FileHeader \"KVT Object Text v2.01\"\nPointList\n", 2},
      {"FileHeader \"KVT Object Text v2.01\"\nbegin\nFileInfos\nend\n", 3},
      {Geo("LineList|"), 4},
      {Geo("PointList|AttributeList|"), 5},
      {Geo("PointList|"), 4},
      {Geo("PointList|begin|Point2 \"P\"|end|LineList|"), 6},
      {Geo("PointList|Point \"P\"|LineList|"), 5},
      {Geo("PointList|begin|Point|begin|Point|end|end|"), 8},
      {Geo("PointList|begin|Point|begin|AttributeList|begin|Attributes|end|"), 10},
      {Geo(rows + "begin|Point|end|"), 7},
      {Geo(line + "AttributeList|end|end|"), 9},
      {Geo(line + "PointList|AttributeList|begin|X|"), 12},
      {Geo(rows + "AttributeList|begin|Point|"), 8},
      {Geo(rows, "2.02"), 4, 0},
      {Geo(rows, "1e99"), 4, 0},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Read("a.geo", c.bytes), kFailure) << c.bytes;
    EXPECT_EQ(messages_.Take().back(), "Invalid Geo-file format") << c.bytes;
    EXPECT_EQ(file_.GetFaultLine(), c.faultLine) << c.bytes;
    EXPECT_EQ(Read("a.geo", c.bytes, simple_), c.readOnlyResult) << c.bytes;
    EXPECT_EQ(simple_.GetFaultLine(), c.readOnlyResult == 0 ? 0 : c.faultLine) << c.bytes;
  }
}

TEST_F(PxyCoordinateFileTest, ReadOnlyStore) {
  const std::string colour = "AttributeList|begin|Attribute \"Color\",\"5\"|end|";
  const std::string points = "PointList|begin|Point|begin|" + colour + "end|Point|end|";
  ASSERT_EQ(Read("a.geo",
                 Geo("PointList|LineList|begin|Line \"A\"|begin|" + points + colour +
                     "end|Line \"B\"|begin|" + points + "end|end|"),
                 simple_),
            0);
  SimpleGeoLine line;
  SimpleGeoPt point;
  const auto store = [this] {
    return std::static_pointer_cast<SimpleCoordinateFile>(simple_.GetDataHolder());
  };
  for (const int i : {0, 1}) {
    ASSERT_TRUE(store()->GetLine(line, KeeperByIndex, i));
    EXPECT_EQ(line.Colour, i == 0 ? 5 : 0xFFFFFFFF) << "its own, not that of the line before";
    ASSERT_TRUE(store()->GetPoint(point, KeeperLinePoints, KeeperByIndex, i));
    EXPECT_EQ(point.Colour, i == 0 ? 5 : 0xFFFFFFFF);
  }
  ASSERT_EQ(Read("a.pxy", Golden("pxy"), simple_), 0);
  ASSERT_TRUE(store()->GetLine(line, KeeperLast, 0));
  EXPECT_STREQ(line.Name, ".5");
  EXPECT_EQ(line.PointCount, 2) << "what follows the last line belongs to it";
}

// A codec that only looks at the columns.
struct ColumnWalk {
  template <class Value>
  void Stream(Value& /*value*/, Column column) {
    EXPECT_GE(column.offset, reached);
    EXPECT_GT(column.width, 0);
    EXPECT_GE(column.decimals, 0);
    reached = column.offset + column.width;
  }
  int reached = 0;
};

TEST_F(PxyCoordinateFileTest, ColumnsAreInOrder) {
  ColumnWalk walk;
  internal::PxyRecord record;
  internal::StreamPxyColumns(walk, record);
  EXPECT_EQ(walk.reached, internal::kPxyEndOffset);
  EXPECT_EQ(internal::kPxyEndOffset + internal::kPxyLineEnd.size(), internal::kPxyLineSize);
}

TEST_F(PxyCoordinateFileTest, NamesMakeLines) {
  const struct {
    std::string names, outline, written;
  } kCases[] = {
      {"L1.10 L1.20", "L1{10 20}", "L1.10 L1.20"},
      {"A.B.C ..a.b 1 1", "A{C} ..a{b} 1 1", "A.C ..a.b 1 1"},
      {".5 .5.7 5. ...", ".5{5 7} 5{} ...{}", ".5.5 .5.7 5. ...."},
      {"L1.1 2 L1.3", "L1{1 3} 2", "L1.1 L1.3 2"},
      {"L1.1 L2.1 L1.2 l1.1", "L1{1} L2{1} L1{2} l1{1}", "L1.1 L2.1 L1.2 l1.1"},
  };
  for (const auto& c : kCases) {
    std::string rows = c.names + "\n";
    std::replace(rows.begin(), rows.end(), ' ', '\n');
    ASSERT_EQ(Read("a.tun", PxyHeader() + rows), 0);
    EXPECT_EQ(Outline(file_), c.names);
    ASSERT_EQ(Read("a.pxy", PxyHeader() + rows), 0);
    EXPECT_EQ(Outline(file_), c.outline);
    Written();
    ASSERT_EQ(Read("a.tun", ReadBytes(path_)), 0);
    EXPECT_EQ(Outline(file_), c.written);
  }
}

TEST_F(PxyCoordinateFileTest, OddLinesAreRecordsThatTakeNothingFromTheLineBefore) {
  const struct {
    std::string line, fields;
  } kCases[] = {
      {" \r\n", R"("",0,0,0,"","","")"},
      {"P", R"("P",0,0,0,"","","")"},
      {"P             12.5\r\n", R"("P",12.5,0,0,"","","")"},
      {"P                    12.50      1.5000     -2.0000 K\n", R"("P",12.5,1.5,-2,"K","","")"},
      {"P               1.25abc 7         8\n", R"("P",1.25,8,0,"","","")"},
      {"ABCDEFGHIJKLMN      1.0000      2.0000      3.0000xKKKKKKKKxSSRRRRRRRRRRRRtail\n",
       R"("ABCDEFGHIJKL",1,2,3,"KKKKKKKK","SS","RRRRRRRRRRRR")"},
      {"P\t            1\n", R"("P\t",1,0,0,"","","")"},
      {"Gr\xE4nd         1\r\n", "\"Gr\xE4nd\",1,0,0,\"\",\"\",\"\""},
      {"P             1" + std::string(100000, 'x'), R"("P",1,0,0,"xxxxxxxx","xx","xxxxxxxxxxxx")"},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read("a.tun", Golden("pxy") + c.line), 0) << c.line;
    EXPECT_EQ(FieldsOf(dynamic_cast<PointDataItem&>(file_.back()), 0), c.fields) << c.line;
  }
}

TEST_F(PxyCoordinateFileTest, WhatDoesNotFitItsColumns) {
  ASSERT_EQ(Read("a.pxy", PxyHeader()), 0);
  LineDataItem* line = file_.CreateLine("LINE567", 0);
  line->AddPoint("12345678", {kUndefined, 1e9, -0.00004}, "123456789", "ABC", "1234567890123");
  file_.InsertPoint(new PointDataItem({1, 2, 3}, "two\nlines", "\n", "", "\na"), nullptr);
  const std::string rows = Written().substr(PxyHeader().size());
  const std::string row =
      "LINE567.1234  1000000000.0000      0.0000     -0.0000 12345678 "
      "AB123456789012,\r\n";
  EXPECT_EQ(rows.substr(0, row.size()), row) << "numbers widen the row, texts are cut";
  EXPECT_EQ(rows.size(), row.size() + internal::kPxyLineSize) << "line feeds do not end a line";
  EXPECT_EQ(rows.substr(row.size(), 9), "two lines");
}

}  // namespace
