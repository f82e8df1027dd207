// `korvel grid convert` and `korvel geoid query` on a real geoid, whole and spoilt.

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "tests/tools/korvel/corrections/ModelFiles.h"

namespace {

constexpr std::size_t kHeader = 80;  // bytes of a BYN file before its heights

const std::string kByn = ReadBytes(RealGrid("canada.byn"));

std::string WithBytes(std::string bytes, std::size_t at, const std::string& others) {
  return bytes.replace(at, others.size(), others);
}

// The heights in the other order of bytes.
std::string Swapped(std::string bytes) {
  for (auto at = bytes.begin() + kHeader; at != bytes.end(); at += 4) std::reverse(at, at + 4);
  return bytes;
}

// Arguments that convert a file of these bytes.
std::string Convert(const TempFolder& folder, const std::string& name, const std::string& bytes,
                    const std::string& more = "") {
  WriteBytes(folder.Path(name), bytes);
  return "grid convert " + folder.Path(name) + ' ' + more;
}

}  // namespace

TEST(GridConvert, BynOfBothOrdersOfBytesAnswersAsIndependentPrograms) {
  const TempFolder folder;
  RunWell(Convert(folder, "little.byn", kByn));
  const ProgramRun big =
      RunWell(Convert(folder, "big.byn", WithBytes(Swapped(kByn), 48, {"\0\0", 2})));
  EXPECT_NE(big.error.find("big endian"), std::string::npos);
  EXPECT_TRUE(ReadBytes(folder.Path("big.grd")) == ReadBytes(folder.Path("little.grd")));
  const std::string points = RealGrid("canada.values.csv");
  const auto expected = CsvNumbersOf(ReadBytes(points));
  const ProgramRun run =
      RunWell("geoid query --json " + folder.Path("big.grd") + " --points " + points);
  const nlohmann::json answers = run.Json()["points"];
  ASSERT_EQ(answers.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_NEAR(answers[i]["geoid_height"], expected[i][3], 1e-5) << i;
}

TEST(GridConvert, GarbageIsRefusedAndLeavesNoFile) {
  const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);  // 1.0
  const struct {
    const char *what, *error;
    std::string bytes;
  } kCases[] = {
      {"big endian, told little", "wrong order of bytes", Swapped(kByn)},
      {"little endian, told big", "wrong order of bytes", WithBytes(kByn, 48, {"\0", 1})},
      {"unknown order", "doesn't tell the order", WithBytes(kByn, 48, "\x02")},
      {"cut off", "holds 1151 heights", kByn.substr(0, kByn.size() - 4)},
      {"no heights", "holds 0 heights", kByn.substr(0, kHeader)},
      {"cut header", "ends within its header", kByn.substr(0, 50)},
      {"8 bytes", "heights of 8 bytes", WithBytes(kByn, 32, "\x08")},
      {"factor 0", "no usable factor", WithBytes(kByn, 24, std::string(8, '\0'))},
      {"factor 1", "are none of a geoid", WithBytes(kByn, 24, one)},
      {"spacing 0", "make no grid", WithBytes(kByn, 16, {"\0\0", 2})},
  };
  for (const auto& c : kCases) {
    const TempFolder folder;
    SCOPED_TRACE(c.what);
    ExpectFault(Convert(folder, "g.byn", c.bytes), c.error);
    EXPECT_EQ(folder.Names(), std::set<std::string>{"g.byn"});
  }
}

TEST(GridConvert, Text) {
  const TempFolder folder;
  const std::string text = "100 120 100 130 10 10\n 1 2 3 4\n 5 6 7 8\n 9 10 9999 12\n";
  const std::string toGrid = " -o " + folder.Path("o.grd");
  const ProgramRun run = RunWell(Convert(folder, "t.txt", text, "--magic 778" + toGrid));
  EXPECT_NE(run.out.find("3 x 4 heights from 1.000 to 12.000 m, 1 without value"),
            std::string::npos)
      << run.out << run.error;
  const ProgramRun query =
      RunKorvel("geoid query --csv " + folder.Path("o.grd") + " 115,105,100 105,115,100");
  EXPECT_EQ(query.out,
            "name,north,east,height,geoid_height,orthometric_height,fault\n"
            ",115,105,100,3.5,96.5,\n,105,115,100,,,no value there\n");
  EXPECT_EQ(query.status, 1);

  const std::string old = ReadBytes(folder.Path("o.grd"));
  const struct {
    std::string text, more, error;
  } kCases[] = {
      {text, "", "no degrees"},
      {text + "13", "--magic 778", "don't fill 3 rows of 4 columns"},
      {text.substr(0, 40), "--magic 778", "don't fill"},
      {"100 120 100 130 10 10", "--magic 778", "don't fill"},
      {"north 20", "--magic 778", "can't be converted"},
  };
  for (const auto& c : kCases) {
    ExpectFault(Convert(folder, "t.txt", c.text, c.more + toGrid), c.error);
    EXPECT_TRUE(ReadBytes(folder.Path("o.grd")) == old) << c.error;
  }
}
