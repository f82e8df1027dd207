#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/LinFile.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Limits.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr std::size_t kRecord = 128;

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

  std::string Numbers() const {
    std::string all;
    for (std::size_t i = 0; const auto e = file_.GetElement(i); ++i) all += e->GetElemNo() + ';';
    return all;
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

TLin Element(const std::string& elemNo, double y) {
  TLin element;
  element.SetElemNo(elemNo);
  element.SetY(y);
  return element;
}

TEST_F(LinFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  const TLin e = *file_.GetElement(3);
  EXPECT_EQ(e.GetElemNo(), "K2");
  EXPECT_EQ(Vector(e.GetX(), e.GetY()), Vector(673997.47764, 6580123.91397));
  EXPECT_EQ(Vector(e.GetRadius(), e.GetERadius()), Vector(100.0, -150.0));
  EXPECT_EQ(Vector(e.GetBearing(), e.GetParameter()), Vector(26.923947, 80.0));
  EXPECT_EQ(Vector(e.GetSection(), e.GetLength()), Vector(1126.0, 106.66667));
  EXPECT_EQ(file_.GetStopSection(), 1346.66667);
  EXPECT_TRUE(Check().empty());
  EXPECT_EQ(Written(), Golden());
  ExpectOnPage("lin.md", Golden());
}

TEST_F(LinFileTest, CutOffAnywhere) {
  std::size_t lastField = Golden().size() - kRecord;
  for (int comma = 0; comma < 8; ++comma) lastField = Golden().find(',', lastField) + 1;
  for (std::size_t size = 0; size < Golden().size(); size += size < lastField - 9 ? 7 : 1) {
    const bool isEnough = size >= lastField;
    ASSERT_EQ(Read(Golden().substr(0, size)), isEnough ? 0 : -9) << size;
    const std::size_t whole = std::max<std::size_t>(size / kRecord, 1) - 1;
    ASSERT_EQ(file_.GetTotalElements(), isEnough ? 7 : whole) << size;
    ASSERT_EQ(messages_.Take().size(), isEnough ? 0U : 1U) << size;
  }
}

TEST_F(LinFileTest, WideNumbersAreNotCutBefore129Characters) {
  const std::pair<double, const char*> cases[] = {
      {1e10, "0.00000,\r\n"}, {1e11, "0.00000,\r\n"}, {1e12, "0.00000,\r"}, {1e13, "0.00000,"},
      {1e14, "0.00000"},      {1e15, "0.0000"},       {-1e300, ""}};
  for (const auto& [y, end] : cases) {
    Put(0, Element("12345678901234", y));
    const std::string bytes = Written();
    EXPECT_EQ(bytes.size(), kRecord + (y == 1e10 ? 128 : 129)) << y;
    EXPECT_THAT(bytes, testing::EndsWith(end)) << y;
  }
}

TEST_F(LinFileTest, RealAlignmentsReachTheirPublishedEnds) {
  const struct {
    std::string name;
    double y, x, length;
  } cases[] = {{"m3_road", 6783089.305300, 21531286.430300, 1266.246238},
               {"clothoids", 4084689.855782, 335420.420696, 507.067}};
  for (const auto& c : cases) {
    ASSERT_EQ(Read(ReadBytes(KORVELFILE_TEST_DATA "/alignments/" + c.name + ".lin")), 0);
    EXPECT_TRUE(Check().empty()) << c.name;
    for (std::size_t i = 1; i < 16; ++i) {
      const Vector start(file_.GetElement(i)->GetX(), file_.GetElement(i)->GetY());
      EXPECT_LT(file_.FindEndPosOfElement(static_cast<int>(i) - 1).GetDistance(start), 2e-5) << i;
    }
    // One publisher's end is 0.2 mm off its own elements.
    EXPECT_LT(file_.FindEndPosOfElement(14).GetDistance({c.x, c.y}), 3e-4) << c.name;
    EXPECT_NEAR(file_.GetStopSection(), c.length, 5e-4) << c.name;
  }
}

TEST_F(LinFileTest, Records) {
  const std::string rest = ",1,2,3,4,5,6,7,8";
  const struct {
    const char* what;
    std::string bytes;
    int result;
    const char* elements;
  } cases[] = {
      {"no elements", Record("1"), 0, ""},
      {"count negative", Record("-2147483648"), 0, ""},
      {"count beyond the file", Record("2147483647") + Record("a" + rest), -9, "a;"},
      {"fields of any width", Record("2") + Record(" a 1 ,1,2,3,4,5,6,7,  8e0x"), 0, " a 1 ;"},
      {"12 characters", Record("2") + Record("123456789012" + rest), 0, "123456789012;"},
      {"13 characters", Record("2") + Record("1234567890123" + rest), -9, ""},
      {"closing comma for the last field", Record("2") + Record("a,1,2,3,4,5,6,7"), 0, "a;"},
      {"one field fewer", Record("2") + Record("a,1,2,3,4,5,6"), -9, ""},
      {"NUL", Record("2") + Record(std::string("a\0b", 3) + rest), -9, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.bytes), c.result) << c.what;
    EXPECT_EQ(Numbers(), c.elements) << c.what;
  }
  ASSERT_EQ(Read(Record("2") + Record("a,1,2,3,4,5,6,7,-0")), 0);
  const TLin closing = *file_.GetElement(0);
  EXPECT_EQ(closing.GetRadius() + closing.GetParameter(), 0.0);
  EXPECT_EQ(closing.GetERadius(), 7.0);
}

// One figure of the golden road goes wrong, and is corrected; elements are told by their index.
TEST_F(LinFileTest, CheckReportsWhatDoesNotAgree) {
  const struct {
    const char* what;
    std::size_t element;
    void (TLin::*set)(double);
    double value;
    const char* reported;  // and the status of the first
  } cases[] = {
      {"length", 0, &TLin::SetLength, 50.01, "0: 0"},
      {"within the limit", 0, &TLin::SetLength, 50.0009, ""},
      {"bearing", 2, &TLin::SetBearing, 1.5, "2: 0"},
      {"chainage of the end", 6, &TLin::SetSection, 1340.0, "6: 0"},
      {"bearing of the end", 6, &TLin::SetBearing, 77.0, ""},
      {"length not a number", 4, &TLin::SetLength, std::nan(""), "4: 0"},
      {"foot 0.1 m off", 1, &TLin::SetParameter, 60.1, ""},
      {"foot 1.2 m off", 1, &TLin::SetParameter, 61.0, "123456: 3"},
      {"radius below half the chord", 2, &TLin::SetRadius, 19.0, "23456: 1"},
      {"equal radii", 3, &TLin::SetERadius, 100.0, "3456: 2"},
      {"X not a number", 4, &TLin::SetX, std::nan(""), "3456: 3"},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(Read(Golden()), 0);
    TLin element = *file_.GetElement(c.element);
    (element.*c.set)(c.value);
    Put(c.element, element, true);
    file_.DeleteElement(c.element + 1);
    std::vector<TLinCtrl> report = Check();
    std::string reported;
    for (const TLinCtrl& line : report) reported += std::to_string(line.GetPos());
    if (!report.empty()) reported += ": " + std::to_string(report.front().GetComment());
    EXPECT_EQ(reported, c.reported) << c.what;
    file_.LinDataCorrect(report);
    EXPECT_EQ(Check().empty(), report.empty() || report.front().GetComment() == 0) << c.what;
    EXPECT_EQ(Numbers(), "S1;K1;B1;K2;B2;K3;END;");
  }
}

TEST_F(LinFileTest, FailedSaveKeepsTheOldFile) {
  ASSERT_EQ(Read(Golden()), 0);
  Put(99, Element("appended", 0.0));
  EXPECT_EQ(Numbers(), "S1;K1;B1;K2;B2;K3;END;appended;");
  const FileSizeLimit limit(100);
  EXPECT_EQ(file_.Save(path_.c_str()), -9);
  EXPECT_EQ(ReadBytes(path_), Golden());
  EXPECT_THAT(messages_.Take(), testing::ElementsAre("can't open lin-file!", path_));
}

}  // namespace
