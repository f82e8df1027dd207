// A triad file of 200,000 triangles in random order.
//
// Floors: a uniform grid of cells with the same point-in-triangle test, without a thread's own
// triangle and without a rule for points on edges; the walk from triangle to triangle alone, with a
// plain local variable; reading the records and decoding them; one thread.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <malloc.h>

#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Types.h"
#include "support/Ratio.h"

namespace {

constexpr int kColumns = 400;
constexpr int kRows = 250;
constexpr double kSpacing = 100.0;
constexpr double kJitter = 0.4;  // of the spacing; no triangle turns over
constexpr double kEast = 480000.0;
constexpr double kNorth = 6580000.0;
constexpr int kQueries = 1000000;
constexpr std::size_t kRecord = 32;
constexpr std::uint32_t kFirstPoint = 7;

using Triangle = std::array<std::uint32_t, 3>;

// Uniform in [0, 1), the same with every standard library.
double Uniform(std::mt19937_64& random) {
  return static_cast<double>(random() >> 11U) * std::ldexp(1.0, -53);
}

class Triads : public LmvTriadFile {
 public:
  using LmvTriadFile::LocateTriangle;
  using LmvTriadFile::PointInsideNeighbourTriangle;

  int Locate(const Vector& p) const { return LocateTriangle(p); }

  // The test of the library, where the floors can have it inline.
  bool IsInside(const Vector& p, int triangle) const {
    const auto& vertex = Triangle(static_cast<std::size_t>(triangle)).vertex;
    const Vector& a = Point(static_cast<std::size_t>(vertex[0]));
    const Vector& b = Point(static_cast<std::size_t>(vertex[1]));
    const Vector& c = Point(static_cast<std::size_t>(vertex[2]));
    const double d = (a.y - c.y) * (c.x - b.x) + (a.x - c.x) * (b.y - c.y);
    const double l1 = ((b.y - c.y) * (p.x - c.x) + (c.x - b.x) * (p.y - c.y)) / d;
    const double l2 = ((c.y - a.y) * (p.x - c.x) + (a.x - c.x) * (p.y - c.y)) / d;
    const double l3 = 1.0 - l1 - l2;
    return l1 >= 0.0 && l1 <= 1.0 && l2 >= 0.0 && l2 <= 1.0 && l3 >= 0.0 && l3 <= 1.0;
  }
};

void PutWord(std::string& bytes, std::size_t offset, std::uint32_t value) {
  _Types::UInt32ToLittleEndianBytes(value, reinterpret_cast<unsigned char*>(&bytes[offset]));
}

void PutDouble(std::string& bytes, std::size_t offset, double value) {
  _Types::DoubleToLittleEndianBytes(value, reinterpret_cast<unsigned char*>(&bytes[offset]));
}

std::vector<Triangle> MakeTriangles() {
  std::vector<Triangle> triangles;
  const auto corner = [](int row, int column) {
    return static_cast<std::uint32_t>(row * (kColumns + 1) + column + 1);
  };
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const std::uint32_t a = corner(row, column);
      const std::uint32_t c = corner(row + 1, column + 1);
      triangles.push_back({a, corner(row, column + 1), c});
      triangles.push_back({a, c, corner(row + 1, column)});
    }
  }
  std::shuffle(triangles.begin(), triangles.end(), std::mt19937_64(1));
  return triangles;
}

std::string MakeFile() {
  constexpr std::uint32_t kFirstTriangle = kFirstPoint + (kColumns + 1) * (kRows + 1);
  const std::vector<Triangle> triangles = MakeTriangles();
  const auto end = static_cast<std::uint32_t>(kFirstTriangle + triangles.size());
  std::string bytes(end * kRecord, '\0');
  bytes.replace(0, 8, "TRIAD   ");
  std::size_t offset = kRecord + 12;
  for (const std::uint32_t word : {kFirstPoint, kFirstTriangle, kFirstTriangle, end}) {
    PutWord(bytes, offset, word);
    offset += 4;
  }
  PutWord(bytes, 2 * kRecord, 1);
  std::mt19937_64 random(2);
  offset = kFirstPoint * kRecord;
  for (int row = 0; row <= kRows; ++row) {
    for (int column = 0; column <= kColumns; ++column) {
      PutDouble(bytes, offset, kNorth + kSpacing * (row + kJitter * (Uniform(random) - 0.5)));
      PutDouble(bytes, offset + 8, kEast + kSpacing * (column + kJitter * (Uniform(random) - 0.5)));
      offset += kRecord;
    }
  }
  for (const Triangle& triangle : triangles) {
    for (std::size_t i = 0; i < 3; ++i) PutWord(bytes, offset + 4 * i, triangle[i]);
    offset += kRecord;
  }
  return bytes;
}

// Two triangles to a cell, which is the fastest.
class GridFloor {
 public:
  explicit GridFloor(const Triads& triads) : triads_(triads), cells_(kColumns * kRows) {
    for (int t = 0; t < triads.GetNumTriangles(); ++t) Add(t);
  }

  int Locate(const Vector& p) const {
    for (const int t : cells_[Cell(Column(p.x), Row(p.y))])
      if (triads_.IsInside(p, t)) return t;
    return -1;
  }

 private:
  static int Column(double x) {
    return std::clamp(static_cast<int>((x - kEast) / kSpacing), 0, kColumns - 1);
  }
  static int Row(double y) {
    return std::clamp(static_cast<int>((y - kNorth) / kSpacing), 0, kRows - 1);
  }
  static std::size_t Cell(int column, int row) {
    return static_cast<std::size_t>(row * kColumns + column);
  }

  void Add(int t) {
    const auto& vertex = triads_.Triangle(static_cast<std::size_t>(t)).vertex;
    const Vector& a = triads_.Point(static_cast<std::size_t>(vertex[0]));
    const Vector& b = triads_.Point(static_cast<std::size_t>(vertex[1]));
    const Vector& c = triads_.Point(static_cast<std::size_t>(vertex[2]));
    const auto [left, right] = std::minmax({a.x, b.x, c.x});
    const auto [lower, upper] = std::minmax({a.y, b.y, c.y});
    for (int row = Row(lower); row <= Row(upper); ++row)
      for (int column = Column(left); column <= Column(right); ++column)
        cells_[Cell(column, row)].push_back(t);
  }

  const Triads& triads_;
  std::vector<std::vector<int>> cells_;
};

// The walk from triangle to triangle, and nothing else.
struct WalkFloor {
  const Triads& triads;
  int last;

  int Locate(const Vector& p) {
    if (triads.IsInside(p, last)) return last;
    const int found = triads.PointInsideNeighbourTriangle(p, last, -1, 5);
    if (found >= 0) last = found;
    return found;
  }
};

std::vector<Vector> RandomPoints() {
  std::mt19937_64 random(3);
  std::vector<Vector> points;
  for (int i = 0; i < kQueries; ++i)
    points.emplace_back(kEast + kSpacing * (1.0 + (kColumns - 2) * Uniform(random)),
                        kNorth + kSpacing * (1.0 + (kRows - 2) * Uniform(random)));
  return points;
}

// To and fro across the network, a point every `step` metres.
std::vector<Vector> Track(double step) {
  std::vector<Vector> points;
  constexpr double kLength = kSpacing * (kColumns - 4);
  double station = 0.0;
  for (int i = 0; i < kQueries; ++i, station += step) {
    const double lap = std::floor(station / kLength);
    const double along = station - lap * kLength;
    const bool isBack = std::fmod(lap, 2.0) != 0.0;
    points.emplace_back(kEast + 2.0 * kSpacing + (isBack ? kLength - along : along),
                        kNorth + 3.0 * kSpacing + 37.0 * lap + 60.0 * std::sin(station / 300.0));
  }
  return points;
}

template <class Locator>
Work LocateAll(Locator& locator, const std::vector<Vector>& points) {
  return [&] {
    std::int64_t sum = 0;
    for (const Vector& p : points) sum += locator.Locate(p);
    Keep(sum);
  };
}

Work LocateInTwoThreads(const Triads& triads, const std::vector<Vector>& points) {
  const auto locate = [&triads, &points](std::size_t begin, std::size_t end) {
    std::int64_t sum = 0;
    for (std::size_t i = begin; i < end; ++i) sum += triads.LocateTriangle(points[i]);
    Keep(sum);
  };
  return [locate, size = points.size()] {
    const std::jthread helper(locate, size / 2, size);
    locate(0, size / 2);
  };
}

// Reads the records one by one, decodes them and appends them to vectors.
void ReadAndDecode(const std::string& path, const Triads& like) {
  GeoFile file;
  std::array<unsigned char, kRecord> record;
  const auto read = [&] { return _FileIO::ReadFile(file, record.data(), kRecord) == 0; };
  _FileIO::OpenFile(file, path, _FileIO::kRead, false);
  for (std::uint32_t i = 0; i < kFirstPoint; ++i) read();
  auto points = std::vector(like.GetPoints().begin(), like.GetPoints().begin());
  for (int i = 0; i < like.GetNumPoints() && read(); ++i) {
    points.push_back({{_Types::LittleEndianBytesToDouble(&record[8]),
                       _Types::LittleEndianBytesToDouble(&record[0])},
                      {_Types::LittleEndianBytesToFloat(&record[20]),
                       _Types::LittleEndianBytesToFloat(&record[16])}});
  }
  auto triangles = std::vector(like.GetTriangles().begin(), like.GetTriangles().begin());
  for (int i = 0; i < like.GetNumTriangles() && read(); ++i) {
    const auto vertex = [&record](std::size_t offset) {
      return static_cast<int>(_Types::LittleEndianBytesToUInt32(&record[offset]) - 1);
    };
    triangles.emplace_back(vertex(0), vertex(4), vertex(8));
  }
  Keep(points);
  Keep(triangles);
}

}  // namespace

int main() {
  const std::string path = (std::filesystem::temp_directory_path() / "bench.triad").string();
  std::ofstream(path, std::ios::binary) << MakeFile();
  Triads triads;
  if (!triads.OpenFile(Widen(path))) return 1;

  const GridFloor grid(triads);
  const std::vector<Vector> random = RandomPoints();
  for (const Vector& p : random) {
    if (triads.LocateTriangle(p) < 0 || grid.Locate(p) < 0) {
      std::puts("a point isn't found");
      return 1;
    }
  }
  PrintRatio("1,000,000 random points, grid of cells", 2.5, 7, LocateAll(grid, random),
             LocateAll(triads, random));
  for (const double step : {5.0, 0.1}) {
    const std::vector<Vector> track = Track(step);
    WalkFloor walk{triads, triads.LocateTriangle(track.front())};
    PrintRatio("1,000,000 points along a track, the walk alone", 1.05, 7, LocateAll(walk, track),
               LocateAll(triads, track));
  }
  // Each loading takes its memory fresh from the system, as a program does that loads once.
  PrintRatio(
      "loading 200,000 triangles, reading records", 3.0, 15, [&] { ReadAndDecode(path, triads); },
      [&] { LmvTriadFile().OpenFile(Widen(path)); }, [] { malloc_trim(0); });
  PrintRatio("two threads, random points, one thread", 1.0 / 1.5, 7, LocateAll(triads, random),
             LocateInTwoThreads(triads, random));
  std::filesystem::remove(path);
  return 0;
}
