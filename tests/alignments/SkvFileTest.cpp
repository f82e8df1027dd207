#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/SkvFile.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Limits.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr std::size_t kRecord = 77;

class SkvFileTest : public testing::Test {
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

  void Put(int index, const String& elemNo, double section, double slope, bool insert) {
    file_.SetElement(index, elemNo, section, slope, -slope, insert);
    EXPECT_FALSE(insert);
  }

  // "number section slope1 slope2;" of all elements.
  std::string Elements() {
    int count = 0;
    file_.GetTotalElements(count);
    std::string all;
    for (int i = 0; i < count; ++i) {
      String elemNo;
      double section = 0.0, slope1 = 0.0, slope2 = 0.0;
      file_.GetElement(i, elemNo, section, slope1, slope2);
      all += SF::dformat("%s %.10g %.10g %.10g;", elemNo.c_str(), section, slope1, slope2);
    }
    return all;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("road.skv");
  SkvFile file_;
  CaughtMessages messages_;
};

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/skv/road.skv");
  return bytes;
}

const std::string kElements =
    "C1 1000 0.025 -0.025;C2 1060 0.025 -0.025;CURVE-LEFT-1 1086 -0.04 0.0425;"
    "C4 1126 -0.055125 0.055;END 1346.6667 0 0;";

TEST_F(SkvFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_EQ(Elements(), kElements);
  const SkvFile copy(file_);
  SkvFile moved(std::move(file_));
  file_ = copy;
  moved.Delete();
  EXPECT_EQ(Written(), DatedToday(Golden()));
  ExpectOnPage("skv.md", Golden());
}

TEST_F(SkvFileTest, CutOffAnywhere) {
  for (std::size_t size = 0; size < Golden().size(); size += 3) {
    const bool isEnough = size >= 2 * kRecord;
    ASSERT_EQ(Read(Golden().substr(0, size)), isEnough ? 0 : -9) << size;
    const std::string elements = Elements();
    ASSERT_EQ(std::ranges::count(elements, ';'), isEnough ? size / kRecord - 2 : 0) << size;
    ASSERT_THAT(kElements, testing::StartsWith(elements));
    ASSERT_EQ(messages_.Take(),
              std::vector<std::string>(isEnough ? 0 : 1, "Error Corrupted .skv file!"));
  }
}

TEST_F(SkvFileTest, ColumnsCountAndNothingElse) {
  const std::string headers(2 * kRecord, 'x');
  const struct {
    const char* what;
    std::string record;
    const char* element;
  } cases[] = {
      {"blank in the number", "A B", "A 0 0 0;"},
      {"blank number", "   B          5", " 5 0 0;"},
      {"NUL in the number", std::string("A\0B", 3), "A 0 0 0;"},
      {"words for numbers", "A             12,5        x 7         1e2", "A 12 0 1;"},
      {"numbers without blanks", "123456789012xx123456789.12-12345.123456.1234567890",
       "123456789012 123456789.1 -123.4512345 0.06123456789;"},
  };
  for (auto [what, record, element] : cases) {
    record.resize(kRecord, ' ');
    ASSERT_EQ(Read(headers + record), 0);
    EXPECT_EQ(Elements(), element) << what;
  }
}

TEST_F(SkvFileTest, NumbersTooWideLengthenTheirRecord) {
  const std::pair<double, std::size_t> cases[] = {{1e6, 77}, {1e7, 78}, {1e8, 78}, {-1e300, 78}};
  for (const auto& [section, size] : cases) {
    file_.Delete();
    Put(0, "1234567890123", section, 0.0251234, false);
    const std::string record = Written().substr(2 * kRecord);
    EXPECT_EQ(record.size(), size) << section;
    EXPECT_EQ(record.substr(0, 16), section < 0 ? "123456789012  -1" : "123456789012  10");
  }
  Put(0, "a", 0.0, 0.0251234, false);
  ASSERT_EQ(Read(Written()), 0);
  EXPECT_EQ(Elements(), "a 0 0.025123 -0.025123;");
}

TEST_F(SkvFileTest, ElementsAreInsertedOverwrittenAndAppended) {
  Put(-1, "b", 2.0, 0.5, true);
  Put(0, "a", 1.0, 0.5, true);
  Put(9, "c", 3.0, 0.5, false);
  Put(1, "B", 2.5, 0.25, false);
  Put(-1, "nowhere", 0.0, 0.0, false);
  EXPECT_EQ(Elements(), "a 1 0.5 -0.5;B 2.5 0.25 -0.25;c 3 0.5 -0.5;");
  file_.DeleteElement(3);
  file_.DeleteElement(0);
  EXPECT_EQ(Elements(), "B 2.5 0.25 -0.25;c 3 0.5 -0.5;");
}

TEST_F(SkvFileTest, FailedSaveKeepsTheOldFile) {
  ASSERT_EQ(Read(Golden()), 0);
  const FileSizeLimit limit(100);
  EXPECT_EQ(file_.Save(path_.c_str()), -9);
  EXPECT_EQ(ReadBytes(path_), Golden());
  EXPECT_THAT(messages_.Take(), testing::ElementsAre("can't open skv-file!", path_));
}

}  // namespace
