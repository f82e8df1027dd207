// The fixed-column form: `.pxy` and `.tun`.

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/outside/base/Time.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/coordinates/RealPoints.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kFailure = -9;
constexpr std::size_t kDateAt = 23;
constexpr std::size_t kDateSize = 10;

std::string Golden(const std::string& extension) {
  return ReadBytes(KORVELFILE_GOLDEN "/pxy/job." + extension);
}

std::string Header() { return Golden("pxy").substr(0, 2 * internal::kPxyLineSize); }

// A point line with this name and a marker as its y.
std::string Row(const std::string& name, const std::string& rest = "      1.0000") {
  return name + std::string(14 - name.size(), ' ') + rest + "\r\n";
}

std::string Rows(const std::vector<std::string>& names) {
  std::string rows;
  for (const std::string& name : names) rows += Row(name);
  return rows;
}

// "name", "line{name name}" and so on, in the order of the list.
std::string Outline(const DataItemListObject& list) {
  std::string outline;
  for (const DataItemInterface& item : list) {
    const auto* line = dynamic_cast<const LineDataItem*>(&item);
    if (!line && !dynamic_cast<const PointDataItem*>(&item)) continue;
    if (!outline.empty()) outline += ' ';
    outline += item.GetName();
    if (line) outline += '{' + Outline(*line) + '}';
  }
  return outline;
}

class PxyTest : public testing::Test {
 protected:
  PxyTest() { SetGoldenIdentity(); }

  int Read(const std::string& bytes, const std::string& extension = "pxy") {
    path_ = folder_.Path("job." + extension);
    WriteBytes(path_, bytes);
    file_.ChooseFile(path_.c_str());
    return file_.UseCollector();
  }

  // What a file that was just read becomes, with the date of the golden file.
  std::string Written() {
    EXPECT_EQ(file_.AutoSave(), 0);
    return ReadBytes(path_).replace(kDateAt, kDateSize, "2019-04-23");
  }

  const PointDataItem& LastPoint() { return dynamic_cast<const PointDataItem&>(file_.back()); }

  TempFolder folder_;
  std::string path_;
  CaughtMessages messages_;
  PxyCoordinateFile file_{false};
};

TEST_F(PxyTest, GoldenFileReadsAndWritesByteForByte) {
  ASSERT_EQ(Read(Golden("pxy")), 0);
  EXPECT_THAT(messages_.Take(), IsEmpty());
  EXPECT_EQ(Outline(file_), "1001 1002 12{1 2} .5{7} 13");
  EXPECT_TRUE(dynamic_cast<GeoAttribList*>(&file_[1]));
  const auto& tree = dynamic_cast<const PointDataItem&>(file_[3]);
  EXPECT_EQ(Vector3d(tree), Vector3d(150021.75, 6500012.125, 0.0)) << "y stands before x";
  EXPECT_EQ(tree.GetPointCode(), "TREE");
  EXPECT_EQ(tree.GetRadius(), 12.5);
  EXPECT_EQ(tree.GetType(), PointDataItemType::Ordinary);
  EXPECT_EQ(LastPoint().GetPointCode(), "CODE1234");
  EXPECT_EQ(LastPoint().GetSpecialCode(), "-1");
  EXPECT_EQ(LastPoint().GetRemark(), "twelve chars");
  EXPECT_EQ(LastPoint().x, 9999999.9999);
  EXPECT_EQ(Written(), Golden("pxy"));
}

TEST_F(PxyTest, GoldenTunFileKeepsItsNames) {
  ASSERT_EQ(Read(Golden("tun"), "tun"), 0);
  EXPECT_EQ(Outline(file_), "12.1 12.2 .5.7");
  EXPECT_EQ(Written(), Golden("tun"));
}

TEST_F(PxyTest, PageOfTheFormatShowsTheGoldenFiles) {
  const std::string page = ReadBytes(KORVELFILE_SOURCE "/docs/formats/pxy.md");
  for (const char* extension : {"pxy", "tun"}) {
    std::string golden = Golden(extension);
    std::erase(golden, '\r');
    EXPECT_THAT(page, HasSubstr("```\n" + golden + "```\n"));
  }
}

TEST_F(PxyTest, NewFilesCarryTheDateOfToday) {
  path_ = folder_.Path("new.pxy");
  file_.ChooseFile(path_.c_str());
  const GeoDate before = _Time::GetDateLocal();
  ASSERT_EQ(file_.InitCollector(), 0);
  const std::string bytes = ReadBytes(path_);
  const GeoDate after = _Time::GetDateLocal();
  char dates[2][32];
  std::snprintf(dates[0], sizeof dates[0], "%i-%02i-%02i", before.year, before.month, before.day);
  std::snprintf(dates[1], sizeof dates[1], "%i-%02i-%02i", after.year, after.month, after.day);
  EXPECT_THAT(bytes.substr(kDateAt, kDateSize), testing::AnyOf(dates[0], dates[1]));
  EXPECT_EQ(std::string(bytes).replace(kDateAt, kDateSize, "2019-04-23"), Header());
  EXPECT_EQ(file_.UseCollector(), 0) << "two lines are a file without points";
  EXPECT_EQ(file_.size(), 2U);
}

TEST_F(PxyTest, NamesMakeLines) {
  const struct {
    std::vector<std::string> names;
    const char *outline, *outlineInTun;
    std::vector<std::string> written;
  } kCases[] = {
      {{"L1.10", "L1.20"}, "L1{10 20}", "L1.10 L1.20", {"L1.10", "L1.20"}},
      {{"A.B.C"}, "A{C}", "A.B.C", {"A.C"}},
      {{".5"}, ".5{5}", ".5", {".5.5"}},
      {{".5.7"}, ".5{7}", ".5.7", {".5.7"}},
      {{"5."}, "5{}", "5.", {"5."}},
      {{"..."}, "...{}", "...", {"...."}},
      {{"..a.b"}, "..a{b}", "..a.b", {"..a.b"}},
      {{"L1.1", "2", "L1.3"}, "L1{1 3} 2", "L1.1 2 L1.3", {"L1.1", "L1.3", "2"}},
      {{"L1.1", "L2.1", "L1.2"}, "L1{1} L2{1} L1{2}", "L1.1 L2.1 L1.2", {"L1.1", "L2.1", "L1.2"}},
      {{"L1.1", "l1.1"}, "L1{1} l1{1}", "L1.1 l1.1", {"L1.1", "l1.1"}},
      {{"1", "1"}, "1 1", "1 1", {"1", "1"}},
      {{" 1", "a b.c d"}, " 1 a b{c d}", " 1 a b.c d", {" 1", "a b.c d"}},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read(Header() + Rows(c.names), "tun"), 0);
    EXPECT_EQ(Outline(file_), c.outlineInTun);
    file_.UnUseCollector();
    ASSERT_EQ(Read(Header() + Rows(c.names)), 0);
    EXPECT_EQ(Outline(file_), c.outline);
    const std::string bytes = Written();
    std::vector<std::string> written;
    for (std::size_t at = Header().size(); at < bytes.size(); at += internal::kPxyLineSize) {
      written.emplace_back(TrimBlanksRight(std::string_view(bytes).substr(at, 12)));
    }
    EXPECT_THAT(written, ElementsAreArray(c.written));
    file_.UnUseCollector();
  }
}

TEST_F(PxyTest, OddLinesAreRecords) {
  const struct {
    const char* what;
    std::string line;
    const char* name;
    Vector3d at;
    const char *pointCode, *remark;
  } kCases[] = {
      {"blank", "", "", {0, 0, 0}, "", ""},
      {"name alone", "P", "P", {0, 0, 0}, "", ""},
      {"short number", "P             12.5", "P", {0, 12.5, 0}, "", ""},
      {"no commas, no padding",
       "P                    12.50      1.5000     -2.0000 K",
       "P",
       {1.5, 12.5, -2},
       "K",
       ""},
      {"text in a number", "P               1.25abc 7         8", "P", {8, 1.25, 0}, "", ""},
      {"cut at the width",
       "ABCDEFGHIJKLMN      1.0000      2.0000      3.0000xKKKKKKKKxSSRRRRRRRRRRRRtail",
       "ABCDEFGHIJKL",
       {2, 1, 3},
       "KKKKKKKK",
       "RRRRRRRRRRRR"},
      {"tab is no blank", "P\t            1", "P\t", {0, 1, 0}, "", ""},
      {"latin bytes", "Gr\xE4nd         1", "Gr\xE4nd", {0, 1, 0}, "", ""},
      {"very long",
       "P             1" + std::string(100000, 'x'),
       "P",
       {0, 1, 0},
       "xxxxxxxx",
       "xxxxxxxxxxxx"},
  };
  for (const auto& c : kCases) {
    for (const char* end : {"\r\n", "\n", ""}) {
      if (c.line.empty() && *end == '\0') continue;
      ASSERT_EQ(Read(Header() + c.line + end), 0) << c.what;
      ASSERT_EQ(file_.size(), 3U) << c.what;
      EXPECT_EQ(LastPoint().GetName(), c.name) << c.what;
      EXPECT_EQ(Vector3d(LastPoint()), c.at) << c.what;
      EXPECT_EQ(LastPoint().GetPointCode(), c.pointCode) << c.what;
      EXPECT_EQ(LastPoint().GetRemark(), c.remark) << c.what;
      file_.UnUseCollector();
    }
  }
}

TEST_F(PxyTest, ShortLinesTakeNothingFromTheLineBefore) {
  ASSERT_EQ(Read(Golden("pxy") + "P\r\n"), 0);
  EXPECT_EQ(Vector3d(LastPoint()), Vector3d(0, 0, 0));
  EXPECT_EQ(LastPoint().GetRemark(), "");
}

TEST_F(PxyTest, WhatDoesNotFit) {
  ASSERT_EQ(Read(Header()), 0);
  LineDataItem* line = file_.CreateLine("LINE567", 0);
  line->AddPoint("12345678", {kUndefined, 1e9, -0.00004}, "123456789", "ABC", "1234567890123");
  EXPECT_EQ(Written(), Header() +
                           "LINE567.1234  1000000000.0000      0.0000     -0.0000 12345678 "
                           "AB123456789012,\r\n")
      << "numbers widen the row, texts are cut";
}

TEST_F(PxyTest, LineFeedsDoNotEndALine) {
  ASSERT_EQ(Read(Header()), 0);
  file_.InsertPoint(new PointDataItem({1, 2, 3}, "two\nlines", "\n", "", "\na"), nullptr);
  const std::string bytes = Written();
  ASSERT_EQ(bytes.size(), 3 * internal::kPxyLineSize);
  EXPECT_EQ(bytes.substr(Header().size(), 9), "two lines");
}

TEST_F(PxyTest, FormatPxyRecord) {
  char buffer[100];
  PxyCoordinateFile::FormatPxyRecord(buffer, sizeof buffer, "1001", 6500000.5, 150000.25, 12, "FIX",
                                     "", "");
  EXPECT_EQ(buffer, Golden("pxy").substr(2 * 77, 77));
  PxyCoordinateFile::FormatPxyRecord(buffer, 9, "abcdefghijkl", 1, 2, 3, "", "", "");
  EXPECT_STREQ(buffer, "abcdefgh") << "cut, with a terminator";
  buffer[0] = 'x';
  PxyCoordinateFile::FormatPxyRecord(buffer, 0, "abc", 1, 2, 3, "", "", "");
  EXPECT_EQ(buffer[0], 'x');
}

TEST_F(PxyTest, HeaderLinesMustBeThere) {
  const struct {
    const char* bytes;
    int result;
  } kCases[] = {
      {"", kFailure}, {"one line", kFailure}, {"one line\r\n", kFailure}, {"\n\n", 0}, {"a\nb", 0}};
  for (const auto& c : kCases) {
    for (const char* extension : {"pxy", "tun"}) {
      EXPECT_EQ(Read(c.bytes, extension), c.result) << c.bytes;
      EXPECT_EQ(file_.size(), 2U) << "the default items are there";
      if (c.result == 0) {
        EXPECT_THAT(messages_.Take(), IsEmpty());
      } else {
        EXPECT_THAT(messages_.Take(), ElementsAre("Bogus pxy-file!"));
      }
      file_.UnUseCollector();
    }
    PxyCoordinateFile simple(true);
    simple.ChooseFile(path_.c_str());
    EXPECT_EQ(simple.UseCollector(), c.result) << c.bytes;
    EXPECT_EQ(simple.GetDataHolder() != nullptr, c.result == 0);
    messages_.Take();
  }
}

TEST_F(PxyTest, ChangedAndWrittenBack) {
  ASSERT_EQ(Read(Golden("pxy")), 0);
  auto& point = dynamic_cast<PointDataItem&>(file_[2]);
  point.SetPointCode("NEW").AndRemark("moved");
  point = Vector3d(1, 2, 3);
  file_.FlagDirty();
  EXPECT_EQ(file_.UnUseCollector(), 0);
  EXPECT_THAT(messages_.Take(), ElementsAre("writing changes to file"));
  const std::string bytes = ReadBytes(path_);
  EXPECT_EQ(bytes.substr(2 * 77, 77),
            "1001                2.0000      1.0000      3.0000 NEW        moved       ,\r\n");
  EXPECT_EQ(bytes.substr(3 * 77), Golden("pxy").substr(3 * 77));
}

TEST_F(PxyTest, ReadOnlyStore) {
  for (const char* extension : {"pxy", "tun"}) {
    WriteBytes(folder_.Path(std::string("s.") + extension), Golden("pxy"));
    PxyCoordinateFile simple(true);
    simple.ChooseFile(folder_.Path(std::string("s.") + extension).c_str());
    ASSERT_EQ(simple.UseCollector(), 0);
    EXPECT_EQ(simple.size(), 2U) << "no point in the list";
    auto& store = dynamic_cast<SimpleCoordinateFile&>(*simple.GetDataHolder());
    const bool isPxy = std::string(extension) == "pxy";
    EXPECT_EQ(store.GetPointCount(), 6);
    EXPECT_EQ(store.GetLineCount(), isPxy ? 2 : 0);
    SimpleGeoPt point;
    EXPECT_EQ(store.GetPoint(point, KeeperFreePoints, KeeperLast, 0), true);
    EXPECT_STREQ(point.Name, isPxy ? "1002" : "13");
    if (!isPxy) continue;
    SimpleGeoLine line;
    ASSERT_TRUE(store.GetLine(line, KeeperLast, 0));
    EXPECT_STREQ(line.Name, ".5");
    EXPECT_EQ(line.PointCount, 2) << "what follows the last line belongs to it";
    EXPECT_FALSE(line.Closed);
    EXPECT_EQ(line.Colour, 0xFFFFFFFF);
    ASSERT_TRUE(store.GetPoint(point, KeeperLinePoints, KeeperFirst, 0));
    EXPECT_STREQ(point.Name, "7");
    EXPECT_STREQ(point.SpecialCode, "CF");
    EXPECT_EQ(point.Position.y, 6500003.0);
  }
}

TEST_F(PxyTest, RealFile) {
  const std::string bytes = ReadBytes(KORVELFILE_TEST_DATA "/points/m3_breaklines.pxy");
  ASSERT_EQ(Read(bytes), 0);
  RealPoints::ExpectIn(file_, RealPoints::kPxyEastOffset);
  EXPECT_EQ(Written(), std::string(bytes).replace(kDateAt, kDateSize, "2019-04-23"));

  PxyCoordinateFile simple(true);
  const std::string path = folder_.Path("simple.pxy");
  WriteBytes(path, bytes);
  simple.ChooseFile(path.c_str());
  ASSERT_EQ(simple.UseCollector(), 0);
  RealPoints::ExpectInStore(*simple.GetDataHolder(), RealPoints::kPxyEastOffset);
}

TEST_F(PxyTest, CutOffAndMangledFilesAreReadAsFarAsTheyGo) {
  for (std::size_t size = 0; size < Golden("pxy").size(); size += 5) {
    const std::string bytes = Golden("pxy").substr(0, size);
    const bool hasHeader = size > internal::kPxyLineSize;
    ASSERT_EQ(Read(bytes), hasHeader ? 0 : kFailure) << size;
    file_.UnUseCollector();
  }
  PrintedRandom random(4711);
  for (int i = 0; i < 500; ++i) {
    std::string bytes = Golden("pxy");
    for (std::size_t hits = 1 + random.Below(6); hits > 0; --hits) {
      bytes[random.Below(bytes.size())] = static_cast<char>(random.Below(256));
    }
    ASSERT_EQ(Read(bytes), 0) << i;
    file_.UnUseCollector();
    PxyCoordinateFile simple(true);
    simple.ChooseFile(path_.c_str());
    ASSERT_EQ(simple.UseCollector(), 0) << i;
  }
}

}  // namespace
