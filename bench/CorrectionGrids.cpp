// Corrections from a grid file against plain loops over the same values in memory.
//
// The floors know the limits and the spacing, test the limits and work out cell and fractions as
// the library does; they read their nodes from one array of floats and have no other component, no
// other method and no missing nodes to think of.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <unistd.h>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Types.h"
#include "support/Ratio.h"

namespace fs = std::filesystem;

namespace {

constexpr int kLines = 2000;
constexpr int kManyLines = 20000;
constexpr int kPoints = 1000000;
constexpr double kNorth = 6600000.0;
constexpr double kEast = 150000.0;
constexpr double kSpacing = 10.0;

constexpr double kTrackBar = 3.0;
constexpr double kRandomBar = 15.0;
constexpr double kBicubicBar = 8.0;
constexpr double kMemoryBar = 8.0;  // MiB

struct Point {
  double north;
  double east;
};
using Points = std::vector<Point>;
using Four = std::array<double, 4>;

class Folder {
 public:
  Folder() { fs::create_directory(path_); }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string Path(const char* name) const { return (path_ / name).string(); }

 private:
  fs::path path_ =
      fs::temp_directory_path() / ("korvelfile-bench-grids-" + std::to_string(getpid()));
};

std::vector<float> MakeNodes() {
  std::vector<float> nodes;
  for (int row = 0; row < kLines; ++row) {
    for (int column = 0; column < kLines; ++column) {
      nodes.push_back(static_cast<float>(0.03 * std::sin(row / 90.0) * std::cos(column / 70.0)));
    }
  }
  return nodes;
}

// Residuals of up to 10 cm that have nothing to do with each other.
std::vector<float> MakeRoundedNoise() {
  std::mt19937_64 random(20260102);
  std::vector<float> nodes(std::size_t{kLines} * kLines);
  for (float& node : nodes)
    node = static_cast<float>((static_cast<double>(random() % 2001) - 1000.0) / 1e4);
  return nodes;
}

CcgFile MakeFile(const std::string& path, InterpolationTypes method,
                 const std::vector<float>& nodes, int lines) {
  CcgFile file;
  file.CreateOrUpdateFile(CcgInputGrid(kNorth, kEast, kSpacing, kSpacing, lines, lines, path,
                                       CorrectionZ, method, method, nodes));
  return file;
}

// The same heights as a `.grd` file of plain coordinates; 2000 columns need no padding.
std::string WriteHeights(const std::string& path, const std::vector<float>& nodes) {
  constexpr std::size_t kHeaderSize = 64;
  constexpr double kExtent = (kLines - 1) * kSpacing;
  std::string bytes(kHeaderSize + nodes.size() * sizeof(float), '\0');
  auto* out = reinterpret_cast<unsigned char*>(bytes.data());
  _Types::UInt32ToLittleEndianBytes(GrdFile::kPlainMagic, out);
  out += sizeof(std::uint32_t);
  for (const double number :
       {kNorth - kExtent, kNorth, kEast, kEast + kExtent, kSpacing, kSpacing}) {
    _Types::DoubleToLittleEndianBytes(number, out);
    out += sizeof number;
  }
  out = reinterpret_cast<unsigned char*>(bytes.data()) + kHeaderSize;
  for (const float node : nodes) {
    _Types::FloatToLittleEndianBytes(node, out);
    out += sizeof node;
  }
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

// A file of zeros that takes no room on the disk.
CcgFile MakeBigFile(const std::string& path) {
  constexpr int kNorthMinPlace = 34;
  constexpr int kEastMaxPlace = 58;
  constexpr double kExtent = (kManyLines - 1) * kSpacing;
  MakeFile(path, Bilinear, {0.0F, 0.0F, 0.0F, 0.0F}, 2);
  const double limits[] = {kNorth - kExtent, kEast + kExtent};
  std::fstream out(path, std::ios::binary | std::ios::in | std::ios::out);
  out.seekp(kNorthMinPlace);
  out.write(reinterpret_cast<const char*>(&limits[0]), sizeof limits[0]);
  out.seekp(kEastMaxPlace);
  out.write(reinterpret_cast<const char*>(&limits[1]), sizeof limits[1]);
  out.close();
  fs::resize_file(path, 106 + std::uintmax_t{kManyLines} * kManyLines * sizeof(float));
  CcgFile file;
  if (!file.OpenFile(Widen(path))) std::puts("no big grid");
  return file;
}

// From the north-west to the south-east, in bends.
Points Track(int lines) {
  const double extent = (lines - 1) * kSpacing;
  Points points;
  for (int i = 0; i < kPoints; ++i) {
    const double part = 0.05 + 0.9 * i / kPoints;
    points.push_back(
        {kNorth - extent * part, kEast + extent * (part + 0.03 * std::sin(40.0 * part))});
  }
  return points;
}

Points Scattered(int lines) {
  std::mt19937_64 random(20260101);
  std::uniform_real_distribution<double> extent(1.5 * kSpacing, (lines - 2.5) * kSpacing);
  Points points;
  for (int i = 0; i < kPoints; ++i)
    points.push_back({kNorth - extent(random), kEast + extent(random)});
  return points;
}

double Sum(const CcgFile& file, const Points& points) {
  const CoordinateCorrectionModelInterface& model = file;
  double sum = 0.0;
  Vector3d correction;
  for (const Point& p : points) {
    if (model.GetCorrections(p.north, p.east, correction)) sum += correction.z;
  }
  return sum;
}

double Sum(GrdFile& file, const Points& points) {
  double sum = 0.0;
  double height = 0.0;
  for (const Point& p : points) {
    if (file.GetHeight(p.east, p.north, &height)) sum += height;
  }
  return sum;
}

struct Cell {
  int row;
  int column;
  double t;
  double s;
};

// A grid in memory, with the limits of the two methods.
struct Floor {
  const std::vector<float>& nodes;
  double northMax = kNorth;
  double northMin = kNorth - (kLines - 1) * kSpacing;
  double eastMin = kEast;
  double eastMax = kEast + (kLines - 1) * kSpacing;
  double spacing = kSpacing;

  double Node(int row, int column) const {
    return nodes[static_cast<std::size_t>(row) * kLines + static_cast<std::size_t>(column)];
  }

  bool Find(const Point& p, double rim, Cell& cell) const {
    if (p.north >= northMax - rim || p.north <= northMin + rim || p.east <= eastMin + rim ||
        p.east >= eastMax - rim)
      return false;
    cell.row = static_cast<int>((northMax - p.north) / spacing);
    cell.column = static_cast<int>((p.east - eastMin) / spacing);
    cell.t = 1.0 - (northMax - p.north - cell.row * spacing) / spacing;
    cell.s = (p.east - eastMin - cell.column * spacing) / spacing;
    return true;
  }

  double BilinearValue(const Cell& c) const {
    const double nw = Node(c.row, c.column);
    const double ne = Node(c.row, c.column + 1);
    const double sw = Node(c.row + 1, c.column);
    const double se = Node(c.row + 1, c.column + 1);
    return (nw - sw) * c.t + sw + (se - sw) * c.s + (sw - se - nw + ne) * c.t * c.s;
  }

  double BicubicValue(const Cell& c) const {
    const Four east = CubicWeights(c.s);
    const Four north = CubicWeights(c.t);
    double sum = 0.0;
    for (int i = 0; i < 4; ++i) {
      for (int j = 0; j < 4; ++j) {
        sum += north[static_cast<std::size_t>(3 - i)] * east[static_cast<std::size_t>(j)] *
               Node(c.row - 1 + i, c.column - 1 + j);
      }
    }
    return sum;
  }

  static Four CubicWeights(double fraction) {
    const double p = fraction / 3.0 + 1.0 / 3.0;
    const double p2 = p * p;
    const double p3 = p2 * p;
    return {-4.5 * p3 + 9.0 * p2 - 5.5 * p + 1.0, 13.5 * p3 - 22.5 * p2 + 9.0 * p,
            -13.5 * p3 + 18.0 * p2 - 4.5 * p, 4.5 * p3 - 4.5 * p2 + p};
  }
};

template <class Value>
double FloorSum(const Floor& floor, const Points& points, double rim, Value value) {
  double sum = 0.0;
  Cell cell{};
  for (const Point& p : points) {
    if (floor.Find(p, rim, cell)) sum += value(cell);
  }
  return sum;
}

// Compares one kind of query, once the floor and the library agree on what comes out.
template <class File, class Value>
void Compare(const char* what, double bar, File& file, const Points& points, const Floor& floor,
             double rim, Value value) {
  const double difference = Sum(file, points) - FloorSum(floor, points, rim, value);
  if (!(std::fabs(difference) < 1e-6))
    std::printf("%s: floor and file differ by %g\n", what, difference);
  PrintRatio(
      what, bar, 5, [&] { Keep(FloorSum(floor, points, rim, value)); },
      [&] { Keep(Sum(file, points)); });
}

template <class File>
void PrintMemory(const char* what, File& file, const Points& track, const Points& scattered) {
  const double before = ResidentBytes();
  Keep(Sum(file, track));
  Keep(Sum(file, scattered));
  const double mebibytes = (ResidentBytes() - before) / (1024.0 * 1024.0);
  std::printf("%-44s %8.2f MiB  bar %4.2f  %s\n", what, mebibytes, kMemoryBar,
              mebibytes <= kMemoryBar ? "ok" : "ABOVE");
}

}  // namespace

int main() {
  const Folder folder;
  const std::vector<float> nodes = MakeNodes();
  const Floor floor{nodes};
  const auto bilinear = [&](const Cell& cell) { return floor.BilinearValue(cell); };
  const auto bicubic = [&](const Cell& cell) { return floor.BicubicValue(cell); };
  {
    const CcgFile plain = MakeFile(folder.Path("bilinear.ccg"), Bilinear, nodes, kLines);
    const CcgFile big = MakeBigFile(folder.Path("big.ccg"));
    usleep(100000);  // a file just written isn't trusted to stay as it is
    const Points tracks[] = {Track(kLines), Track(kManyLines)};
    const Points scatters[] = {Scattered(kLines), Scattered(kManyLines)};
    PrintMemory("memory, 2000 x 2000 nodes", plain, tracks[0], scatters[0]);
    PrintMemory("memory, 20000 x 20000 nodes", big, tracks[1], scatters[1]);
    Compare("bilinear, 1,000,000 points along a track", kTrackBar, plain, tracks[0], floor, 0.0,
            bilinear);
    Compare("bilinear, 1,000,000 random points", kRandomBar, plain, scatters[0], floor, 0.0,
            bilinear);
  }
  {
    GrdFile heights;
    heights.OpenFile(WriteHeights(folder.Path("heights.grd"), nodes).c_str());
    usleep(100000);
    const Points track = Track(kLines);
    const Points scattered = Scattered(kLines);
    PrintMemory("memory, 2000 x 2000 heights", heights, track, scattered);
    Compare("heights, 1,000,000 points along a track", kTrackBar, heights, track, floor, 0.0,
            bilinear);
    Compare("heights, 1,000,000 random points", kRandomBar, heights, scattered, floor, 0.0,
            bilinear);
  }
  {
    const std::vector<float> rounded = MakeRoundedNoise();
    const Floor rough{rounded};
    const CcgFile noise = MakeFile(folder.Path("noise.ccg"), Bilinear, rounded, kLines);
    usleep(100000);
    Compare("noise in 0.1 mm, 1,000,000 random points", kRandomBar, noise, Scattered(kLines), rough,
            0.0, [&](const Cell& cell) { return rough.BilinearValue(cell); });
  }
  const CcgFile cubic = MakeFile(folder.Path("bicubic.ccg"), Bicubic, nodes, kLines);
  usleep(100000);
  Compare("bicubic, 1,000,000 points along a track", kBicubicBar, cubic, Track(kLines), floor,
          kSpacing, bicubic);
  return 0;
}
