#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/outside/base/NumberText.h"
#include "tests/support/Files.h"
#include "tests/support/Limits.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr std::size_t kRecord = 128;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class LinFileTest : public testing::Test {
 protected:
  int Read(const std::string& bytes) {
    WriteBytes(path_, bytes);
    file_ = LinFile();
    return file_.Open(path_.c_str());
  }

  std::string Written() {
    EXPECT_EQ(file_.Save(path_.c_str()), 0);
    return ReadBytes(path_);
  }

  std::vector<TLinCtrl> Check() const {
    std::vector<TLinCtrl> report;
    file_.LinDataCheck(report);
    return report;
  }

  void Put(std::size_t index, const TLin& e, bool insert = false) {
    file_.SetElement(index, e.GetElemNo(), e.GetY(), e.GetX(), e.GetSection(), e.GetRadius(),
                     e.GetBearing(), e.GetParameter(), e.GetERadius(), e.GetLength(), insert);
    EXPECT_FALSE(insert);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("road.lin");
  LinFile file_;
  CaughtMessages messages_;
};

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/lin/road.lin");
  return bytes;
}

std::string Record(std::string text) {
  text.resize(kRecord - 3, ' ');
  return text + ",\r\n";
}

std::string OneElement(const std::string& text) { return Record("2") + Record(text); }

TEST_F(LinFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  const auto element = file_.GetElement(3);
  ASSERT_TRUE(element);
  EXPECT_EQ(element->GetElemNo(), "K2");
  EXPECT_EQ(element->GetY(), 6580123.91397);
  EXPECT_EQ(element->GetX(), 673997.47764);
  EXPECT_EQ(element->GetSection(), 1126.0);
  EXPECT_EQ(element->GetRadius(), 100.0);
  EXPECT_EQ(element->GetBearing(), 26.923947);
  EXPECT_EQ(element->GetParameter(), 80.0);
  EXPECT_EQ(element->GetERadius(), -150.0);
  EXPECT_EQ(element->GetLength(), 106.66667);
  EXPECT_EQ(file_.GetStartSection(), 1000.0);
  EXPECT_EQ(file_.GetStopSection(), 1346.66667);
  EXPECT_TRUE(Check().empty());
  EXPECT_EQ(Written(), Golden());

  std::string golden = Golden();
  std::erase(golden, '\r');
  EXPECT_THAT(ReadBytes(KORVELFILE_SOURCE "/docs/formats/lin.md"),
              testing::HasSubstr("```\n" + golden + "```\n"));
}

TEST_F(LinFileTest, CutOffAnywhere) {
  const std::size_t lastRecord = Golden().size() - kRecord;
  std::size_t lastField = lastRecord;
  for (int comma = 0; comma < 8; ++comma) lastField = Golden().find(',', lastField) + 1;
  for (std::size_t size = 0; size < Golden().size(); ++size) {
    const bool isEnough = size >= lastField;
    ASSERT_EQ(Read(Golden().substr(0, size)), isEnough ? 0 : -9) << size;
    const std::size_t whole = std::max<std::size_t>(size / kRecord, 1) - 1;
    ASSERT_EQ(file_.GetTotalElements(), isEnough ? 7 : whole) << size;
    ASSERT_EQ(messages_.Take().size(), isEnough ? 0U : 1U) << size;
  }
}

TEST_F(LinFileTest, Records) {
  const std::string numbers = ",1,2,3,4,5,6,7,8";
  const struct {
    const char* what;
    std::string bytes;
    int result;
    std::size_t elements;
    std::string lastNumber;
  } cases[] = {
      {"no elements", Record("1"), 0, 0, ""},
      {"count 0", Record("0"), 0, 0, ""},
      {"count negative", Record("-2147483648"), 0, 0, ""},
      {"count beyond the file", Record("2147483647") + Record("a" + numbers), -9, 1, "a"},
      {"count no number", Record("x") + Record("a" + numbers), 0, 0, ""},
      {"fields of any width", OneElement(" a 1 ,1,2,3,4,5,6,7,  8e0x"), 0, 1, " a 1 "},
      {"a number of 12 characters", OneElement("123456789012" + numbers), 0, 1, "123456789012"},
      {"a number of 13", OneElement("1234567890123" + numbers), -9, 0, ""},
      {"no number", OneElement(numbers), 0, 1, ""},
      {"the closing comma serves for the last field", OneElement("a,1,2,3,4,5,6,7"), 0, 1, "a"},
      {"one field fewer", OneElement("a,1,2,3,4,5,6"), -9, 0, ""},
      {"NUL before the comma", OneElement(std::string("a\0b", 3) + numbers), -9, 0, ""},
      {"a second record short of its end", Record("3") + Record("a" + numbers) + "b" + numbers, 0,
       2, "b"},
      {"a short record before the last", Record("3") + "a" + numbers, -9, 0, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.bytes), c.result) << c.what;
    ASSERT_EQ(file_.GetTotalElements(), c.elements) << c.what;
    const auto last = file_.GetElement(c.elements - 1);
    EXPECT_EQ(last ? last->GetElemNo() : "", c.lastNumber) << c.what;
    using Messages = std::vector<std::string>;
    EXPECT_EQ(messages_.Take(), c.result == 0 ? Messages() : Messages{"Error .lin file corrupted!"})
        << c.what;
  }
}

TEST_F(LinFileTest, ElementOfLengthZeroLosesRadiusAndParameterOnReading) {
  ASSERT_EQ(Read(OneElement("a,1,2,3,4,5,6,7,-0")), 0);
  EXPECT_EQ(file_.GetElement(0)->GetRadius(), 0.0);
  EXPECT_EQ(file_.GetElement(0)->GetParameter(), 0.0);
  EXPECT_EQ(file_.GetElement(0)->GetERadius(), 7.0);
}

TEST_F(LinFileTest, WideNumbersAreNotCutBefore129Characters) {
  const std::string plain = Record(
      "1,      0.00000,      0.00000,      0.00000,      0.00000,"
      "  0.000000,      0.00000,      0.00000,      0.00000");
  const struct {
    std::string elemNo;
    double y;
    std::size_t size;
    std::string end;
  } cases[] = {
      {"1", 0.0, 128, plain.substr(100)},          {"12345678901234", 0.0, 128, "0.00000    ,\r\n"},
      {"123456789012", 1e10, 128, "0.00000,\r\n"}, {"123456789012", 1e11, 129, "0.00000,\r\n"},
      {"123456789012", 1e12, 129, "0.00000,\r"},   {"123456789012", 1e13, 129, "0.00000,"},
      {"123456789012", 1e14, 129, "0.00000"},      {"123456789012", 1e15, 129, "0.0000"},
      {"123456789012", -1e300, 129, ""},
  };
  for (const auto& c : cases) {
    TLin element;
    element.SetElemNo(c.elemNo);
    element.SetY(c.y);
    file_ = LinFile();
    Put(0, element);
    const std::string record = Written().substr(kRecord);
    EXPECT_EQ(record.size(), c.size) << c.y;
    EXPECT_THAT(record, testing::EndsWith(c.end)) << c.y;
  }
}

TEST_F(LinFileTest, ElementsInsertOverwriteAndAppend) {
  const auto put = [this](std::size_t index, const char* name, bool insert) {
    TLin element;
    element.SetElemNo(name);
    element.SetLength(name[0]);
    Put(index, element, insert);
  };
  put(5, "b", false);
  put(0, "a", true);
  put(1, "c", true);
  put(1, "B", false);
  put(99, "d", false);
  file_.DeleteElement(0);
  file_.DeleteElement(9);
  LinFile copy(file_);
  file_.DeleteElement(0);
  std::string names;
  for (std::size_t i = 0; i < copy.GetTotalElements(); ++i) {
    names += copy.GetElement(i)->GetElemNo();
    EXPECT_EQ(copy.GetElement(i)->GetLength(), names.back());
  }
  EXPECT_EQ(names, "Bbd");
  EXPECT_FALSE(copy.GetElement(3));
}

TEST_F(LinFileTest, RealAlignmentsReachTheirPublishedEnds) {
  const struct {
    const char* name;
    double y, x, length;
  } cases[] = {{"m3_road", 6783089.305300, 21531286.430300, 1266.246238},
               {"clothoids", 4084689.855782, 335420.420696, 507.067}};
  for (const auto& c : cases) {
    const std::string bytes =
        ReadBytes(KORVELFILE_TEST_DATA "/alignments/" + std::string(c.name) + ".lin");
    ASSERT_EQ(Read(bytes), 0) << c.name;
    ASSERT_EQ(file_.GetTotalElements(), 16U) << c.name;
    EXPECT_TRUE(Check().empty()) << c.name;
    for (int i = 0; i < 15; ++i) {
      const auto next = file_.GetElement(static_cast<std::size_t>(i) + 1);
      const Vector start(next->GetX(), next->GetY());
      EXPECT_LT(file_.FindEndPosOfElement(i).GetDistance(start), 2e-5) << c.name << ' ' << i;
    }
    // One publisher's end is 0.2 mm off its own elements.
    EXPECT_LT(file_.FindEndPosOfElement(14).GetDistance({c.x, c.y}), 3e-4) << c.name;
    EXPECT_NEAR(file_.GetStopSection(), c.length, 5e-4) << c.name;
    EXPECT_EQ(Written(), bytes) << c.name;
  }
}

// One figure of the golden road goes wrong; elements are told by their index.
TEST_F(LinFileTest, CheckReportsWhatDoesNotAgree) {
  const struct {
    const char* what;
    std::size_t element;
    void (TLin::*set)(double);
    double value;
    std::vector<int> reported;
    int status;                // of the first reported element
    double dLength, dBearing;  // of it
  } cases[] = {
      {"length of a straight", 0, &TLin::SetLength, 50.01, {0}, 0, -0.01, 0},
      {"within the limit", 0, &TLin::SetLength, 50.0009, {}, 0, 0, 0},
      {"bearing of an arc", 2, &TLin::SetBearing, 1.5, {2}, 0, 0, 1.459156 - 1.5},
      {"chainage", 3, &TLin::SetSection, 1126.1, {3}, 0, 0, 0},
      {"chainage of the end", 6, &TLin::SetSection, 1340.0, {6}, 0, 0, 0},
      {"bearing of the end, which isn't compared", 6, &TLin::SetBearing, 77.0, {}, 0, 0, 0},
      {"parameter of a clothoid, whose foot lies 1.2 m off",
       1,
       &TLin::SetParameter,
       61.0,
       {1, 2, 3, 4, 5, 6},
       3,
       1.21,
       kNaN},
      {"the same, 0.12 m off", 1, &TLin::SetParameter, 60.1, {}, 0, 0, 0},
      {"radius below half the chord", 2, &TLin::SetRadius, 19.0, {2, 3, 4, 5, 6}, 1, kNaN, kNaN},
      {"equal radii", 3, &TLin::SetERadius, 100.0, {3, 4, 5, 6}, 2, kNaN, 0},
      {"X isn't a number", 4, &TLin::SetX, kNaN, {3, 4, 5, 6}, 3, kNaN, kNaN},
      {"length isn't a number", 4, &TLin::SetLength, kNaN, {4}, 0, kNaN, 0},
      {"radius isn't a number", 4, &TLin::SetRadius, kNaN, {4, 5, 6}, 3, kNaN, kNaN},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(Read(Golden()), 0);
    TLin element = *file_.GetElement(c.element);
    (element.*c.set)(c.value);
    Put(c.element, element);
    const std::vector<TLinCtrl> report = Check();
    std::vector<int> reported;
    for (const TLinCtrl& line : report) reported.push_back(line.GetPos());
    EXPECT_EQ(reported, c.reported) << c.what;
    if (report.empty() || reported != c.reported) continue;
    const TLinCtrl& first = report.front();
    EXPECT_EQ(first.GetComment(), c.status) << c.what;
    EXPECT_EQ(first.GetElemNo(),
              file_.GetElement(static_cast<std::size_t>(first.GetPos()))->GetElemNo());
    EXPECT_EQ(first.GetElement().GetElemNo(), "") << c.what;
    const auto isAsExpected = [](double found, double expected) {
      return std::isnan(expected) || std::fabs(found - expected) < 2e-5;
    };
    EXPECT_TRUE(isAsExpected(first.GetdLength(), c.dLength)) << c.what << first.GetdLength();
    EXPECT_TRUE(isAsExpected(first.GetdBearing(), c.dBearing)) << c.what << first.GetdBearing();
  }
}

TEST_F(LinFileTest, CorrectionBringsBackWhatWasWrong) {
  ASSERT_EQ(Read(Golden()), 0);
  LinFile right(file_);
  for (std::size_t i = 0; i < 7; ++i) {
    TLin element = *file_.GetElement(i);
    element.SetBearing(element.GetBearing() + 0.5);
    element.SetSection(element.GetSection() + (i == 0 ? 0.0 : 3.0));
    if (i < 6) element.SetLength(element.GetLength() - 0.7);
    Put(i, element);
  }
  std::vector<TLinCtrl> report = Check();
  ASSERT_EQ(report.size(), 7U);
  file_.LinDataCorrect(report);
  EXPECT_TRUE(Check().empty());
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(file_.GetElement(i)->GetElemNo(), right.GetElement(i)->GetElemNo());
    EXPECT_NEAR(file_.GetElement(i)->GetSection(), right.GetElement(i)->GetSection(), 2e-5) << i;
    EXPECT_NEAR(file_.GetElement(i)->GetLength(), right.GetElement(i)->GetLength(), 2e-5) << i;
    EXPECT_NEAR(file_.GetElement(i)->GetBearing(), right.GetElement(i)->GetBearing(), 2e-5) << i;
  }
}

// A chord of exactly the diameter, also one that falls, and directions all round.
TEST_F(LinFileTest, CheckWorksOutStraightsAndArcs) {
  const struct {
    const char* what;
    double x, y, radius;  // of the chord
    double bearing, endBearing, length;
  } cases[] = {
      {"north", 0, 10, 0, 0, 0, 10},
      {"east", 10, 0, 0, 100, 100, 10},
      {"south-west", -3, -3, 0, 250, 250, 3 * std::sqrt(2.0)},
      {"of no length", 0, 0, 0, 100, 100, 0},
      {"half a circle to the right", 0, 20, 10, 300, 100, 10 * 3.141592653589793},
      {"to the left, southwards", 0, -20, -10, 300, 100, 10 * 3.141592653589793},
      {"quarter to the right, southwards", 10, -10, 10, 100, 200, 5 * 3.141592653589793},
      {"arc of no length", 0, 0, 10, 0, 0, 0},
  };
  for (const auto& c : cases) {
    file_ = LinFile();
    TLin element;
    element.SetRadius(c.radius);
    element.SetBearing(c.bearing + 1.0);
    element.SetLength(c.length);
    Put(0, element);
    TLin end;
    end.SetX(c.x);
    end.SetY(c.y);
    end.SetSection(-1.0);
    Put(1, end);
    const std::vector<TLinCtrl> report = Check();
    ASSERT_EQ(report.size(), 2U) << c.what;
    EXPECT_NEAR(std::remainder(report[0].GetdBearing() + 1.0, 400.0), 0.0, 1e-9) << c.what;
    EXPECT_NEAR(report[0].GetdLength(), 0.0, 1e-12) << c.what;
    const double endBearing = report[1].GetElement().GetBearing();
    EXPECT_NEAR(std::remainder(endBearing - c.endBearing, 400.0), 0.0, 1e-9) << c.what;
  }
}

TEST_F(LinFileTest, EndOfAnElementWithoutFiniteFiguresIsItsStart) {
  for (const char* numbers : {"2,1,0,0,nan,0,0,5", "2,1,0,5,inf,0,5,5", "2,1,0,nan,7,0,0,5",
                              "2,1,0,5,7,1e200,0,5", "2,1,0,0,7,0,0,inf", "2,1,0,5,7,9,5,5"}) {
    ASSERT_EQ(Read(OneElement(std::string("a,") + numbers)), 0);
    EXPECT_EQ(file_.FindEndPosOfElement(0), Vector(1, 2)) << numbers;
  }
  EXPECT_EQ(file_.FindEndPosOfElement(-1), Vector());
}

TEST_F(LinFileTest, FailedSaveKeepsTheOldFile) {
  ASSERT_EQ(Read(Golden()), 0);
  TLin element;
  Put(7, element);
  const FileSizeLimit limit(100);
  EXPECT_EQ(file_.Save(path_.c_str()), -9);
  EXPECT_EQ(ReadBytes(path_), Golden());
  const std::string missing = folder_.Path("missing/road.lin");
  messages_.Take();
  EXPECT_EQ(file_.Save(missing.c_str()), -9);
  EXPECT_THAT(messages_.Take(), testing::ElementsAre("can't open lin-file!", missing));
  EXPECT_EQ(file_.Open(missing.c_str()), -9);
  EXPECT_TRUE(messages_.Take().empty());
}

}  // namespace
