#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/PrfFile.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Limits.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr std::size_t kRecord = 128;

struct Element {
  String elemNo = {};
  double section = 0.0, z = 0.0, slope = 0.0, radius = 0.0, length = 0.0, offsL = 0.0, offsR = 0.0;
};

class PrfFileTest : public testing::Test {
 protected:
  int Read(const std::string& bytes) {
    WriteBytes(path_, bytes);
    file_.Delete();
    return file_.Open(path_.c_str());
  }

  std::string Written() {
    EXPECT_EQ(file_.Save(path_.c_str()), 0);
    return ReadBytes(path_);
  }

  int Count() const {
    int count = 0;
    file_.GetTotalElements(count);
    return count;
  }

  Element Get(int index) const {
    Element e;
    file_.GetElement(index, e.elemNo, e.section, e.z, e.slope, e.radius, e.length, e.offsL,
                     e.offsR);
    return e;
  }

  void Put(int index, const Element& e, bool insert = false) {
    file_.SetElement(index, e.elemNo, e.section, e.z, e.slope, e.radius, e.length, e.offsL, e.offsR,
                     insert);
    EXPECT_FALSE(insert);
  }

  std::string Numbers() const {
    std::string all;
    for (int i = 0; i < Count(); ++i) all += Get(i).elemNo + ';';
    return all;
  }

  std::vector<TPrfCtrl> Check() const {
    std::vector<TPrfCtrl> report;
    file_.PrfDataCheck(report);
    return report;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("road.prf");
  PrfFile file_;
  CaughtMessages messages_;
};

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/prf/road.prf");
  return bytes;
}

std::string Record(std::string text) {
  text.resize(kRecord - 3, ' ');
  return text + ",\r\n";
}

// Slope at `p` of the circle through `a` and `b`, by the perpendicular bisector of the chord: the
// radius stands square to the slope.
double CircleSlope(const Element& a, const Element& b, const Element& p) {
  const double ds = b.section - a.section;
  const double dz = b.z - a.z;
  const double chord = std::hypot(ds, dz);
  const double height = std::sqrt(a.radius * a.radius - 0.25 * chord * chord);
  const double toCenter = std::copysign(height / chord, a.radius);
  const double s = 0.5 * (a.section + b.section) - toCenter * dz;
  const double z = 0.5 * (a.z + b.z) + toCenter * ds;
  return -(p.section - s) / (p.z - z);
}

TEST_F(PrfFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_EQ(Numbers(), "G1;SAG;G2;CREST-123456;G3;END;");
  const Element e = Get(3);
  EXPECT_EQ(std::vector({e.section, e.z, e.slope, e.radius, e.length, e.offsL, e.offsR}),
            std::vector({1185.5, 57.1376, 0.060104, -1500.0, 150.0, 3.5, 4.25}));
  EXPECT_TRUE(Check().empty());
  const PrfFile copy(file_);
  file_.Delete();
  EXPECT_EQ(Count(), 0);
  file_ = copy;
  EXPECT_EQ(Written(), Golden());
  ExpectOnPage("prf.md", Golden());
}

TEST_F(PrfFileTest, CutOffAnywhere) {
  for (std::size_t size = 0; size < Golden().size(); size += 5) {
    ASSERT_EQ(Read(Golden().substr(0, size)), -9) << size;
    ASSERT_EQ(static_cast<std::size_t>(Count() + 1), std::max<std::size_t>(size / kRecord, 1));
    ASSERT_THAT(messages_.Take(), testing::ElementsAre("PRF: Corrupt .prf file!")) << size;
  }
}

TEST_F(PrfFileTest, Records) {
  const std::string rest = ",1,2,3,0,5,x,y,8,9";
  const struct {
    const char* what;
    std::string bytes;
    int result;
    const char* elements;
  } cases[] = {
      {"no elements", Record("1"), 0, ""},
      {"count beyond the file", Record("2147483647") + Record("a" + rest), -9, "a;"},
      {"fields of any width", Record("2") + Record(" a 1 " + rest), 0, " a 1 ;"},
      {"13 characters", Record("2") + Record("1234567890123" + rest), -9, ""},
      {"closing comma for the last field", Record("2") + Record("a,1,2,3,0,5,6,7,8"), 0, "a;"},
      {"one field fewer", Record("2") + Record("a,1,2,3,0,5,6,7"), -9, ""},
      {"curve that ends before", Record("2") + Record("a,1,2,3,4,50,6,7,8,9"), 0, "a;"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.bytes), c.result) << c.what;
    EXPECT_EQ(Numbers(), c.elements) << c.what;
  }
  EXPECT_EQ(messages_.Take().back(), "PRF:intersection don't exist");
  Put(0, {"12345678901234", 1e13});
  EXPECT_EQ(Written().substr(kRecord, 27), "123456789012,10000000000000");
  EXPECT_EQ(Written().size(), 2 * kRecord + 1);
}

TEST_F(PrfFileTest, ElementsAreInsertedOverwrittenAndAppended) {
  Put(-1, {"b"}, true);
  Put(0, {"a"}, true);
  Put(9, {"c"});
  Put(-1, {"d"}, true);
  Put(1, {"B"});
  Put(-1, {"nowhere"});
  EXPECT_EQ(Numbers(), "a;B;c;d;");
  file_.DeleteElement(4);
  file_.DeleteElement(1);
  EXPECT_EQ(Numbers(), "a;c;d;");
}

TEST_F(PrfFileTest, SlopesAreThoseOfTheCircle) {
  PrintedRandom random(4);
  for (int round = 0; round < 1000; ++round) {
    const double radius = random.Between(120.0, 5000.0) * (round % 2 == 0 ? 1.0 : -1.0);
    const Element a{"a", 0.0, 10.0, 0.0, radius, -1.0};
    const Element b{"b", random.Between(10.0, 100.0), random.Between(0.0, 20.0), 0.0, -radius, -1};
    const Element c{"c", b.section + 50.0, random.Between(0.0, 20.0)};
    for (int i = 0; const Element& e : {a, b, c}) Put(i++, e);
    const auto report = Check();
    ASSERT_EQ(report.size(), 2U);
    ASSERT_NEAR(report[0].GetdSlope(), CircleSlope(a, b, a), 1e-10);
    ASSERT_NEAR(report[1].GetdSlope(), CircleSlope(b, c, b), 1e-10);
    ASSERT_NEAR(report[1].GetmdTP(), CircleSlope(a, b, b) - CircleSlope(b, c, b), 1e-10);
  }
}

TEST_F(PrfFileTest, CheckReportsWhatDoesNotAgree) {
  const struct {
    const char* what;
    int element;
    double Element::*field;
    double value;
    const char* reported;  // and the status of the first
  } cases[] = {
      {"length", 0, &Element::length, 60.01, "0: 0"},
      {"within the limit", 0, &Element::length, 60.0009, ""},
      {"slope", 1, &Element::slope, 0.0211, "1: 0"},
      {"slope not a number", 2, &Element::slope, std::nan(""), "2: 0"},
      {"figures of the end", 5, &Element::slope, 7.0, ""},
      {"radius below half the chord", 3, &Element::radius, -74.0, "34: 1"},
      {"radius of half the chord", 3, &Element::radius, 75.008, "34: 0"},
      {"break", 4, &Element::z, 75.0, "34: 0"},
      {"height not a number", 4, &Element::z, std::nan(""), "34: 1"},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(Read(Golden()), 0);
    Element element = Get(c.element);
    element.*c.field = c.value;
    Put(c.element, element);
    std::vector<TPrfCtrl> report = Check();
    std::string reported;
    for (const TPrfCtrl& line : report) reported += std::to_string(line.GetPos());
    if (!report.empty()) reported += ": " + std::to_string(report.front().GetComment());
    EXPECT_EQ(reported, c.reported) << c.what;
    file_.PrfDataCorrect(report);
    EXPECT_EQ(Numbers(), "G1;SAG;G2;CREST-123456;G3;END;");
    for (const TPrfCtrl& line : Check()) {
      const bool isSettled = line.GetComment() == 0 && std::fabs(line.GetdSlope()) <= 0.001;
      EXPECT_TRUE(!isSettled || std::fabs(line.GetmdTP()) > 0.1) << c.what;
    }
  }
}

TEST_F(PrfFileTest, GeometryAtItsLimits) {
  const struct {
    const char* what;
    Element first, second;
    int status;
    double slope, length;  // of the first as corrected
  } cases[] = {
      {"one point", {"", 5.0, 5.0, 1.0, 0.0, 9.0}, {"", 5.0, 5.0}, 0, 0.0, 0.0},
      {"one point with a radius", {"", 5.0, 5.0, 1.0, 9.0, 9.0}, {"", 5.0, 5.0}, 0, 0.0, 0.0},
      {"backwards", {"", 9.0, 5.0, 1.0, 0.0, 9.0}, {"", 5.0, 7.0}, 0, -0.5, 4.0},
      {"half a circle ends vertically",
       {"", 0.0, 0.0, 1.0, 5.0, 9.0},
       {"", 10.0, 0.0},
       1,
       std::tan(-std::acos(0.0)),
       10.0},
      {"farther than the diameter", {"", 0.0, 0.0, 1.0, 5.0, 9.0}, {"", 10.1, 0.0}, 1, 0.0, 0.0},
      {"largest radius", {"", 0.0, 0.0, 1.0, 1e308, 9.0}, {"", 2.0, 1.0}, 0, 0.5, 2.0},
      {"infinite", {"", 0.0, 0.0, 1.0, HUGE_VAL, 9.0}, {"", 2.0, 1.0}, 1, 0.0, 0.0},
  };
  for (const auto& c : cases) {
    file_.Delete();
    Put(0, c.first);
    Put(1, c.second);
    const auto report = Check();
    ASSERT_EQ(report.size(), 1U) << c.what;
    EXPECT_EQ(report[0].GetComment(), c.status) << c.what;
    EXPECT_DOUBLE_EQ(report[0].GetElement().GetSlope(), c.slope) << c.what;
    EXPECT_EQ(report[0].GetElement().GetLength(), c.length) << c.what;
  }
}

TEST_F(PrfFileTest, FailedSaveKeepsTheOldFile) {
  ASSERT_EQ(Read(Golden()), 0);
  const FileSizeLimit limit(100);
  EXPECT_EQ(file_.Save(path_.c_str()), -9);
  EXPECT_EQ(ReadBytes(path_), Golden());
  EXPECT_THAT(messages_.Take(), testing::ElementsAre("PRF: Can't open prf-file!", path_));
}

}  // namespace
