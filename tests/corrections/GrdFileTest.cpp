#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/outside/base/Types.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"

namespace {

constexpr double kRadians = 3.141592653589793 / 180.0;

std::string Golden(const std::string& name) { return ReadBytes(KORVELFILE_GOLDEN "/grd/" + name); }

struct Header {
  std::uint32_t magic;
  double south, north, west, east, rowSpacing, columnSpacing;
};

// The header, and rows of one padding each: the height in row r and column c is 10 r + c.
std::string Grid(const Header& h, int rows, int columns) {
  std::string bytes(64, '\0');
  auto* out = reinterpret_cast<unsigned char*>(bytes.data());
  _Types::UInt32ToLittleEndianBytes(h.magic, out);
  out += 4;
  for (const double n : {h.south, h.north, h.west, h.east, h.rowSpacing, h.columnSpacing}) {
    _Types::DoubleToLittleEndianBytes(n, out);
    out += 8;
  }
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < (columns + 15) / 16 * 16; ++c) {
      unsigned char value[4];
      _Types::FloatToLittleEndianBytes(c < columns ? static_cast<float>(10 * r + c) : 0.0F, value);
      bytes.append(value, value + 4);
    }
  }
  return bytes;
}

class GrdFileTest : public testing::Test {
 protected:
  bool Open(const std::string& bytes) {
    WriteBytes(path_, bytes);
    grid_.CloseFile();
    return grid_.OpenFile(path_.c_str());
  }

  // The height, or NaN if there is none.
  double At(double east, double north) {
    double height = std::numeric_limits<double>::quiet_NaN();
    const bool isFound = grid_.GetHeight(east, north, &height);
    EXPECT_EQ(isFound, !std::isnan(height));
    return height;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("grid.grd");
  GrdFile grid_;
};

TEST_F(GrdFileTest, GoldenFilesAreMadeOfTextAndByn) {
  WriteBytes(folder_.Path("plain.txt"), Golden("plain.txt"));
  ASSERT_TRUE(grid_.ConvertText(folder_.Path("plain.txt").c_str(), 778));
  EXPECT_EQ(ReadBytes(folder_.Path("plain.grd")), Golden("plain.grd"));
  ExpectOnPage("grd.md", Golden("plain.txt"));

  WriteBytes(folder_.Path("seconds.byn"), Golden("seconds.byn"));
  ASSERT_TRUE(grid_.ConvertCanadaBYN(folder_.Path("seconds.byn").c_str()));
  EXPECT_EQ(ReadBytes(folder_.Path("seconds.grd")), Golden("seconds.grd"));
  std::string swapped = Golden("seconds.byn");
  swapped[48] = 0;
  for (std::size_t at = 80; at < swapped.size(); at += 2) std::swap(swapped[at], swapped[at + 1]);
  const std::string big = folder_.Path("big.byn");
  WriteBytes(big, swapped);
  EXPECT_EQ(GrdFile::BynHeightOrder(big.c_str()), std::endian::big);
  ASSERT_TRUE(grid_.ConvertCanadaBYN(big.c_str(), std::endian::big));
  EXPECT_EQ(ReadBytes(folder_.Path("big.grd")), Golden("seconds.grd"));

  ASSERT_TRUE(Open(Golden("plain.grd")));
  EXPECT_NEAR(At(498062.5, 6652050.0), 40.359375, 1e-12) << "the worked example of the page";
  EXPECT_TRUE(std::isnan(At(498300.0, 6652150.0))) << "a corner without a value";
}

TEST_F(GrdFileTest, Limits) {
  const Header metres{778, 6650000.0, 6650300.0, 500000.0, 500200.0, 100.0, 100.0};
  ASSERT_TRUE(Open(Grid(metres, 4, 3)));
  const struct {
    const char* what;
    double east, north, height;  // NaN: none
  } cases[] = {
      {"on the north limit", 500050.0, 6650300.0, 0.5},
      {"on the south limit", 500050.0, 6650000.0, 30.5},
      {"on the west limit", 500000.0, 6650150.0, 15.0},
      {"on the east limit", 500200.0, 6650150.0, 17.0},
      {"in the south-east corner", 500200.0, 6650000.0, 32.0},
      {"on an inner node", 500100.0, 6650100.0, 21.0},
      {"one step beyond the north limit", 500050.0, std::nextafter(6650300.0, 7e6), NAN},
      {"beyond the east limit", 500200.0 + 2e-10, 6650150.0, NAN},
      {"no number", NAN, 6650150.0, NAN},
      {"infinite", 500050.0, -INFINITY, NAN},
  };
  for (const auto& c : cases) {
    const double height = At(c.east, c.north);
    EXPECT_TRUE(std::isnan(c.height) ? std::isnan(height) : std::fabs(height - c.height) < 1e-9)
        << c.what << ": " << height;
  }
}

TEST_F(GrdFileTest, LongitudesOfOneTurn) {
  ASSERT_TRUE(Open(Grid({777, 0.0, 10.0, 0.0, 360.0, 5.0, 30.0}, 3, 13)));
  EXPECT_NEAR(At(-15.0 * kRadians, 5.0 * kRadians), 21.5, 1e-9) << "a negative one";
  EXPECT_NEAR(At(0.0, 5.0 * kRadians - 0.5e-10), 10.0, 1e-6);
  EXPECT_NEAR(At(30.0 * kRadians, 10.0 * kRadians + 0.9e-10), 1.0, 1e-6) << "within the tolerance";
  EXPECT_TRUE(std::isnan(At(30.0 * kRadians, 10.0 * kRadians + 2e-10))) << "beyond it";
  ASSERT_TRUE(Open(Grid({778, 0.0, 10.0, 0.0, 360.0, 5.0, 30.0}, 3, 13)));
  EXPECT_TRUE(std::isnan(At(-15.0, 5.0))) << "plain coordinates don't turn";
}

TEST_F(GrdFileTest, AnotherFileIsNotAnsweredFromTheLastOne) {
  ASSERT_TRUE(Open(Grid({778, 0.0, 20.0, 0.0, 20.0, 10.0, 10.0}, 3, 3)));
  EXPECT_EQ(At(5.0, 5.0), 15.5);
  EXPECT_TRUE(grid_.OpenFile("none")) << "open already";
  GrdFile copy = grid_;
  grid_.CloseFile();
  EXPECT_TRUE(std::isnan(At(5.0, 5.0))) << "closed";
  EXPECT_FALSE(grid_.OpenFile("none"));
  const std::string other = folder_.Path("other.grd");
  WriteBytes(other, Grid({777, 0.0, 20.0, 0.0, 160.0, 10.0, 10.0}, 3, 17));
  ASSERT_TRUE(grid_.OpenFile(other.c_str()));
  EXPECT_EQ(grid_.GetCoordType(), GrdFile::kGeographic);
  EXPECT_NEAR(At(5.0 * kRadians, 15.0 * kRadians), 5.5, 1e-12) << "another stride";
  double height = 0.0;
  EXPECT_TRUE(copy.GetHeight(15.0, 5.0, &height));
  EXPECT_EQ(height, 16.5) << "the copy keeps to its file";
}

TEST_F(GrdFileTest, HeadersThatLieAnswerNothing) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const Header cases[] = {
      {778, 0, 20, 0, 20, 0, 10},         {778, 0, 20, 0, 20, -10, 10},
      {778, 0, 20, 0, 20, NAN, 10},       {778, 0, 20, 0, 20, 1e-300, 10},
      {778, 0, 1e300, 0, 20, 10, 10},     {778, 0, kInfinity, 0, kInfinity, 10, 10},
      {778, 20, 0, 0, 20, -10, 10},       {778, 0, 20, 0, 20, kInfinity, 10},
      {778, 0, 2e10, 0, 2e10, 10, 10},    {778, NAN, NAN, NAN, NAN, NAN, NAN},
      {778, 0, 1e-9, 0, 20, 1e-300, 1e9},
  };
  for (const Header& header : cases) {
    ASSERT_TRUE(Open(Grid(header, 0, 0) + std::string(2000, '\0')));
    EXPECT_TRUE(std::isnan(At(5.0, 5.0))) << &header - cases;
  }
  ASSERT_TRUE(Open(Grid({778, 0.0, 20.0, 5.0, 5.0 + 1e-11, 10.0, 1e-12}, 3, 11)));
  EXPECT_TRUE(std::isnan(At(5.0 + 1e-11, 5.0))) << "narrower than the tolerance";
  EXPECT_FALSE(Open(Grid({779, 0.0, 20.0, 0.0, 20.0, 10.0, 10.0}, 3, 3))) << "another magic";
  const std::string whole = Grid({778, 0.0, 20.0, 0.0, 20.0, 10.0, 10.0}, 3, 3);
  for (std::size_t size = 0; size < whole.size() - 13 * 4; ++size) {
    Open(whole.substr(0, size));
    EXPECT_TRUE(std::isnan(At(15.0, 5.0))) << "cut off at " << size;
  }
}

TEST_F(GrdFileTest, SourcesThatCantBeConverted) {
  const std::string byn = Golden("seconds.byn");
  std::string noSpacing = byn;
  noSpacing[18] = noSpacing[19] = 0;
  const std::map<std::string, std::string> files = {{"cut.byn", byn.substr(0, 79)},
                                                    {"empty.byn", ""},
                                                    {"five.txt", "0 20 0 20 10 north"},
                                                    {"self.grd", Golden("plain.txt")},
                                                    {"spacing.byn", noSpacing}};
  for (const auto& [name, bytes] : files) WriteBytes(folder_.Path(name), bytes);
  for (const char* name : {"cut.byn", "empty.byn", "spacing.byn", "none.byn"})
    EXPECT_FALSE(grid_.ConvertCanadaBYN(folder_.Path(name).c_str())) << name;
  for (const char* name : {"five.txt", "none.txt", "self.grd"})
    EXPECT_FALSE(grid_.ConvertText(folder_.Path(name).c_str(), 778)) << name;
  EXPECT_EQ(folder_.Names().size(), files.size()) << "no target";

  std::string eight = byn;
  eight[32] = 8;
  WriteBytes(folder_.Path("eight.byn"), eight);
  EXPECT_TRUE(grid_.ConvertCanadaBYN(folder_.Path("eight.byn").c_str()));
  EXPECT_EQ(ReadBytes(folder_.Path("eight.grd")), Golden("seconds.grd").substr(0, 64));
}

}  // namespace
