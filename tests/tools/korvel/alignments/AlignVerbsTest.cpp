// The verbs that work on roads: real alignments, faults put into them, and designs to be refined.

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/LinFile.h"
#include "tests/tools/korvel/CsvText.h"
#include "tests/tools/korvel/RunKorvel.h"

namespace {

using Json = nlohmann::json;
using testing::HasSubstr;

std::string Real(const std::string& name) { return KORVELFILE_TEST_DATA "/alignments/" + name; }

std::string RealRoad(const std::string& name) {
  return Real(name + ".lin") + " --prf " + Real(name + ".prf") + ' ';
}

Json RowsOf(const ProgramRun& run, const char* rows = "points") {
  EXPECT_TRUE(run.Json().is_object()) << run.out << run.error;
  return run.Json()[rows];
}

constexpr std::size_t kRecord = 128;  // bytes of a line file

// Puts a number into a field of an element, both from 1, in the field's width.
std::string WithField(std::string bytes, std::size_t element, int field, const std::string& text) {
  std::size_t at = element * kRecord;
  for (int i = 1; i < field; ++i) at = bytes.find(',', at) + 1;
  const std::size_t width = bytes.find(',', at) - at;
  return bytes.replace(at, width, std::string(width - text.size(), ' ') + text);
}

}  // namespace

TEST(AlignVerbs, StationsAndPointsAsAnIndependentProgram) {
  for (const std::string name : {"m3_road", "clothoids"}) {
    const TempFolder folder;
    const auto expected = CsvNumbersOf(ReadBytes(Real(name + ".points.csv")));
    const Json stations = RowsOf(
        RunKorvel("align station " + RealRoad(name) + "--json -p " + Real(name + ".points.csv")));
    ASSERT_EQ(stations.size(), expected.size());
    std::string back = "dh;offset;chainage\n";
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(stations[i]["chainage"], expected[i][0], 5e-5) << i;
      EXPECT_NEAR(stations[i]["offset"], 0.0, 5e-5) << i;
      if (!stations[i]["height_difference"].is_null()) {
        EXPECT_NEAR(stations[i]["height_difference"], 0.0, 2e-4) << i;
      }
      back += "1;0;" + GeneralText(expected[i][0], 17) + '\n';
    }
    WriteBytes(folder.Path("stations.csv"), back);
    const Json points = RowsOf(
        RunKorvel("align point " + RealRoad(name) + "--json -s " + folder.Path("stations.csv")));
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(points[i]["north"], expected[i][1], 3e-5) << i;
      EXPECT_NEAR(points[i]["east"], expected[i][2], 3e-5) << i;
      EXPECT_NEAR(std::remainder(points[i]["bearing"].get<double>() - expected[i][3], 400.0), 0.0,
                  1e-4);
      if (!points[i]["height"].is_null() && expected[i].size() > 4) {
        EXPECT_NEAR(points[i]["height"], expected[i][4] + 1.0, 2e-4) << i;
      }
    }
  }
}

TEST(AlignVerbs, ArgumentsAndWhatTheyAnswer) {
  const std::string road = RealRoad("clothoids");
  const struct {
    std::string arguments;
    int status;
    std::string said;
  } cases[] = {
      {"station " + road + "4084594.13215,335085.95782,366.8 --csv", 0,
       ",4084594.13215,335085.95782,366.8,0,0,1,365.8,1,"},
      {"station " + road + "4084594,335080", 1, "no foot on the line"},
      {"station " + road, 2, "no points"},
      {"station " + Real("clothoids.prf") + " 1,2", 2, ".lin"},
      {"point " + road + "0,0,2 --csv", 0, "4084594.13215,335085.95782,367.8,102.442119,1,365.8,"},
      {"point " + road + "600 0", 1, "1 point of 2 has no place on the line: 600"},
      {"point " + road + "1,2,3,4", 2, "no station"},
      {"point " + road + "--every 0", 2, "not above 0"},
      {"list " + Real("clothoids.lin") + " --csv", 0,
       "4,clothoid right,58.84064,10.22727,4084627.28,335120.96893,389.529611,,22,15"},
      {"list " + Real("clothoids.prf") + " --csv", 0, "sag,"},
      {"info " + Real("m3_road.lin"), 0, "arc right 5"},
      {"list " + Real("README.md"), 2, ".lin"},
  };
  for (const auto& c : cases) {
    const ProgramRun run = RunKorvel("align " + c.arguments);
    EXPECT_EQ(run.status, c.status) << c.arguments << run.error;
    EXPECT_THAT(run.out + run.error, HasSubstr(c.said)) << c.arguments;
  }
  EXPECT_EQ(RowsOf(RunKorvel("align point " + road + "--every 100 --json")).size(), 7U);
}

// A straight road of 100 m from chainage 1000 on with the crossfalls of the sample file.
TEST(AlignVerbs, CrossfallsGiveTheSurface) {
  const TempFolder folder;
  LinFile line;
  bool insert = false;
  line.SetElement(0, "1", 0, 0, 1000, 0, 0, 0, 0, 100, insert);
  line.SetElement(1, "2", 100, 0, 1100, 0, 0, 0, 0, 0, insert);
  ASSERT_EQ(line.Save(folder.Path("r.lin").c_str()), 0);
  const std::string header = "2" + std::string(124, ' ') + ",\r\n";
  std::string profile = "1,1000,50,0.01,0,100,0,0,0,0,";
  profile.resize(125, ' ');
  WriteBytes(folder.Path("r.prf"), header + profile + ",\r\n");
  const Json rows =
      RowsOf(RunKorvel("align station " + folder.Path("r.lin") + " --prf " + folder.Path("r.prf") +
                       " --skv " KORVELFILE_GOLDEN "/skv/road.skv 30,-4,50 30,4,50 --json"));
  for (const auto& [row, slope] : {std::pair(rows[0], 0.025), std::pair(rows[1], -0.025)}) {
    EXPECT_NEAR(row["crossfall_percent"], 100.0 * slope, 1e-9);
    EXPECT_NEAR(row["surface_height"], 50.3 + 4.0 * slope, 1e-9);
    EXPECT_NEAR(row["surface_difference"], -0.3 - 4.0 * slope, 1e-9);
    EXPECT_NEAR(row["height_difference"], -0.3, 1e-9);
  }
}

TEST(AlignVerbs, FaultsAreNamedAndMended) {
  const TempFolder folder;
  const std::string real = ReadBytes(Real("clothoids.lin"));
  const struct {
    std::size_t element;
    int field;
    const char* text;
    std::vector<std::string> faults;
    int faultsLeft;
  } cases[] = {
      {4, 6, "390.029611", {"bearing"}, 0},
      {5, 9, "46.65440", {"length"}, 0},
      {9, 4, "237.99970", {"chainage"}, 0},
      {5, 5, "5.00000", {"chord too long for the radius"}, 1},
      {3, 8, "-25.00000", {"no clothoid of equal radii"}, 1},
      {7, 2, "nan", {"holds what is no number", "holds what is no number"}, -1},
  };
  for (const auto& c : cases) {
    const std::string bad = folder.Path("bad.lin");
    const std::string mended = folder.Path("mended.lin");
    WriteBytes(bad, WithField(real, c.element, c.field, c.text));
    const ProgramRun run = RunKorvel("align check " + bad + " --json --fix " + mended);
    EXPECT_EQ(run.status, 1) << c.text;
    std::vector<std::string> faults;
    for (const Json& row : RowsOf(run, "faults")) {
      faults.push_back(row["fault"]);
      if (c.faultsLeft >= 0 && faults.size() == 1) {
        EXPECT_EQ(row["record"], c.element) << c.text;
      }
    }
    faults.resize(std::min(faults.size(), c.faults.size()));
    EXPECT_EQ(faults, c.faults) << c.text;
    const std::size_t left =
        RowsOf(RunKorvel("align check " + mended + " --json"), "faults").size();
    if (c.faultsLeft >= 0) {
      EXPECT_EQ(left, static_cast<std::size_t>(c.faultsLeft)) << c.text;
    }
  }
  EXPECT_EQ(RunKorvel("align check " + Real("m3_road.lin")).status, 0);
  EXPECT_EQ(RunKorvel("align check " + Real("m3_road.prf")).status, 0);
  WriteBytes(folder.Path("same.lin"), real);
  const std::string same = folder.Path("same.lin");
  EXPECT_EQ(RunKorvel("align check " + same + " --fix " + same).status, 2);
  EXPECT_EQ(ReadBytes(same), real);
}

TEST(AlignVerbs, RefinedDesignsFollowTheRoad) {
  const TempFolder folder;
  std::string design =
      "FileHeader \"KVT Object Text v2.01\",\"\"\nbegin\nend\nPointList\nbegin\nend\n"
      "LineList\nbegin\nLine \"edge\",0,\"\"\nbegin\nPointList\nbegin\n";
  std::string stations = "chainage,offset,dh\n";
  for (int s = 10; s < 500; s += 40) stations += std::to_string(s) + ",4,-0.1\n";
  WriteBytes(folder.Path("s.csv"), stations);
  for (const Json& p : RowsOf(
           RunKorvel("align point " + RealRoad("clothoids") + "--json -s " + folder.Path("s.csv"))))
    design += "Point \"\"," + p["north"].dump() + ',' + p["east"].dump() + ',' +
              p["height"].dump() + ",\"\",\"\",\"\"\n";
  WriteBytes(folder.Path("design.geo"), design + "end\nend\nend\n");
  const std::string refine = "align refine " + folder.Path("design.geo") + ' ' +
                             Real("clothoids.lin") + ' ' + Real("clothoids.prf") + " -o ";
  const std::string out = folder.Path("out.geo");
  const ProgramRun run = RunKorvel(refine + out + " --sections " + folder.Path("sections.geo"));
  EXPECT_EQ(run.status, 0) << run.error;
  const Json rows =
      RowsOf(RunKorvel("align station " + RealRoad("clothoids") + "--json -p " + out));
  EXPECT_GT(rows.size(), 30U);
  for (const Json& row : rows) {
    EXPECT_NEAR(row["offset"], 4.0, 1e-5) << row;
    EXPECT_NEAR(row["height_difference"], -0.1, 1e-5) << row;
  }
  EXPECT_THAT(RunKorvel("info " + folder.Path("sections.geo")).out, HasSubstr("lines"));
  EXPECT_EQ(RunKorvel(refine + out + " --max-points 0 --deviation 0.0001").status, 1);
  EXPECT_EQ(RunKorvel(refine + folder.Path("design.geo")).status, 2);
  EXPECT_EQ(RunKorvel(refine + folder.Path("out.csv")).status, 2);
}

TEST(AlignVerbs, MangledRoadsEndWithAStatus) {
  const TempFolder folder;
  const std::string real = ReadBytes(Real("clothoids.lin"));
  const std::string digits = "0123456789.-,ne ";
  std::mt19937 random(11);
  const auto below = [&](std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
  };
  const std::string path = folder.Path("m.lin");
  for (int i = 0; i < 25; ++i) {
    std::string bytes = real;
    for (int change = 0; change < 6; ++change)
      bytes[kRecord + below(bytes.size() - kRecord)] = digits[below(digits.size())];
    if (i % 5 == 0) bytes.resize(below(bytes.size()));
    WriteBytes(path, bytes);
    for (const std::string& verb :
         {"check " + path, "list " + path, "station " + path + " 4084600,335100",
          "plot " + path + " --prf " + Real("clothoids.prf") + " -o " + folder.Path("m.svg")}) {
      const int status = RunKorvel("align " + verb).status;
      EXPECT_TRUE(status >= 0 && status <= 2) << i << verb;
    }
  }
}

TEST(AlignVerbs, Pictures) {
  const TempFolder folder;
  for (const std::string extension : {"svg", "pdf", "png"}) {
    const std::string out = folder.Path("road." + extension);
    EXPECT_EQ(RunKorvel("align plot " + RealRoad("m3_road") + "-o " + out).status, 0);
    EXPECT_GT(ReadBytes(out).size(), 5000U) << extension;
  }
  EXPECT_EQ(RunKorvel("align plot " + RealRoad("m3_road") + "-o x.gif").status, 2);
}
