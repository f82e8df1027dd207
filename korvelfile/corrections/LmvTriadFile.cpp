#include "korvelfile/corrections/LmvTriadFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "korvelfile/corrections/internal/InverseIteration.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Types.h"

namespace {

// The layout of the file; a change makes all existing files unreadable.

constexpr std::size_t kRecordSize = 32;
constexpr std::string_view kMagic = "TRIAD   ";

// Bytes from the start of the file.
constexpr std::size_t kFirstPoint = 1 * kRecordSize + 12;
constexpr std::size_t kEndOfPoints = 1 * kRecordSize + 16;
constexpr std::size_t kFirstTriangle = 1 * kRecordSize + 20;
constexpr std::size_t kEndOfTriangles = 1 * kRecordSize + 24;
constexpr std::size_t kControlOne = 2 * kRecordSize;
constexpr std::size_t kNorthMin = 3 * kRecordSize;
constexpr std::size_t kNorthMax = 3 * kRecordSize + 8;
constexpr std::size_t kEastMin = 3 * kRecordSize + 16;
constexpr std::size_t kEastMax = 3 * kRecordSize + 24;
constexpr std::size_t kControlZero = 6 * kRecordSize;
constexpr std::size_t kHeaderSize = 7 * kRecordSize;

// Bytes from the start of a point's record.
constexpr std::size_t kNorth = 0;
constexpr std::size_t kEast = 8;
constexpr std::size_t kNorthCorrection = 16;
constexpr std::size_t kEastCorrection = 20;

// Bytes from the start of a triangle's record, to the number of each vertex, from 1.
constexpr std::array<std::size_t, 3> kVertices = {0, 4, 8};

using TriadPoint = TinPointBase<FloatVector>;
using TriadTriangle = TinTriangleBase<FloatVector, TriadPoint>;

// Records [first, end).
struct RecordRange {
  std::uint32_t first = 0;
  std::uint32_t end = 0;

  RecordRange() = default;
  RecordRange(const unsigned char* firstBytes, const unsigned char* endBytes)
      : first(_Types::LittleEndianBytesToUInt32(firstBytes)),
        end(_Types::LittleEndianBytesToUInt32(endBytes)) {}

  std::size_t Count() const { return end - first; }
};

TriadPoint DecodePoint(const unsigned char* record) {
  const Vector position(_Types::LittleEndianBytesToDouble(record + kEast),
                        _Types::LittleEndianBytesToDouble(record + kNorth));
  return {position,
          {_Types::LittleEndianBytesToFloat(record + kEastCorrection),
           _Types::LittleEndianBytesToFloat(record + kNorthCorrection)}};
}

// False if a vertex is none of `points` points.
bool DecodeTriangle(const unsigned char* record, std::size_t points, TriadTriangle& triangle) {
  for (std::size_t i = 0; i < kVertices.size(); ++i) {
    const std::uint32_t number = _Types::LittleEndianBytesToUInt32(record + kVertices[i]);
    if (number < 1 || number > points) return false;
    triangle.vertex[i] = static_cast<int>(number - 1);
  }
  return true;
}

// False if the file doesn't hold all the records, or `decode` refuses one.
template <class Decode>
bool ReadRecords(GeoFile& file, const RecordRange& records, Decode decode) {
  constexpr std::size_t kRecordsAtOnce = 512;
  std::array<unsigned char, kRecordsAtOnce * kRecordSize> bytes;
  if (records.Count() == 0) return true;
  if (_FileIO::SeekFile(file, static_cast<std::int64_t>(kRecordSize) * records.first) != 0)
    return false;
  for (std::size_t left = records.Count(); left > 0;) {
    const std::size_t count = std::min(left, kRecordsAtOnce);
    if (_FileIO::ReadFile(file, bytes.data(), count * kRecordSize) != 0) return false;
    for (std::size_t i = 0; i < count; ++i)
      if (!decode(&bytes[i * kRecordSize])) return false;
    left -= count;
  }
  return true;
}

// True if the records are there, so that room for them is in proportion to the file.
bool AreInFile(const RecordRange& records, const GeoFile& file) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max() / 3;
  return records.end >= records.first && records.Count() <= kMost &&
         (records.Count() == 0 ||
          static_cast<std::int64_t>(kRecordSize) * records.end <= _FileIO::FileSize(file));
}

}  // namespace

// What the header tells.
struct LmvTriadFile::Header {
  RecordRange points;
  RecordRange triangles;
};

LmvTriadFile::LmvTriadFile() = default;

LmvTriadFile::~LmvTriadFile() = default;

bool LmvTriadFile::OpenFile(const std::wstring& name) {
  name_ = name;
  if (_FileIO::OpenFile(file_, Narrow(name_), _FileIO::kRead, false) != 0) {
    Clear();
    return false;
  }
  Clear();
  const bool isRead = ReadNetwork();
  _FileIO::CloseFile(file_);
  if (!isRead) Clear();
  return isRead;
}

void LmvTriadFile::CloseFile() {}

void LmvTriadFile::Clear() {
  points_.clear();
  triangles_.clear();
  lastTriangle_.Clear();
  set_triangles();
  northMax_ = eastMin_ = northMin_ = eastMax_ = 0.0;
}

bool LmvTriadFile::ReadNetwork() {
  Header header;
  if (!ReadHeader(header)) return false;
  if (!AreInFile(header.points, file_) || !AreInFile(header.triangles, file_)) return false;

  points_.reserve(header.points.Count());
  const auto addPoint = [this](const unsigned char* record) {
    points_.push_back(DecodePoint(record));
    return true;
  };
  triangles_.reserve(header.triangles.Count());
  const auto addTriangle = [this](const unsigned char* record) {
    return DecodeTriangle(record, points_.size(), triangles_.emplace_back());
  };
  return ReadRecords(file_, header.points, addPoint) &&
         ReadRecords(file_, header.triangles, addTriangle) && set_triangles();
}

bool LmvTriadFile::ReadHeader(Header& header) {
  std::array<unsigned char, kHeaderSize> bytes;
  if (_FileIO::ReadFile(file_, bytes.data(), bytes.size()) != 0) return false;
  if (!std::equal(kMagic.begin(), kMagic.end(), bytes.begin()) ||
      _Types::LittleEndianBytesToUInt32(&bytes[kControlOne]) != 1 ||
      _Types::LittleEndianBytesToUInt32(&bytes[kControlZero]) != 0)
    return false;
  header.points = RecordRange(&bytes[kFirstPoint], &bytes[kEndOfPoints]);
  header.triangles = RecordRange(&bytes[kFirstTriangle], &bytes[kEndOfTriangles]);
  northMin_ = _Types::LittleEndianBytesToDouble(&bytes[kNorthMin]);
  northMax_ = _Types::LittleEndianBytesToDouble(&bytes[kNorthMax]);
  eastMin_ = _Types::LittleEndianBytesToDouble(&bytes[kEastMin]);
  eastMax_ = _Types::LittleEndianBytesToDouble(&bytes[kEastMax]);
  return true;
}

bool LmvTriadFile::GetCorrections(double north, double east, Vector3d& corrections) const {
  const Vector p(east, north);
  const int triangle = LocateTriangle(p);
  if (triangle < 0) return false;
  const FloatVector value = ValueIn(Triangle(static_cast<std::size_t>(triangle)), p);
  if (!std::isfinite(value.x) || !std::isfinite(value.y)) return false;
  corrections = Vector3d(static_cast<double>(value.y), static_cast<double>(value.x), 0.0);
  return true;
}

// Letters as in docs/formats/triad.md.
FloatVector LmvTriadFile::ValueIn(const TriadTriangle& triangle, const Vector& p) const {
  const TriadPoint& A = Point(static_cast<std::size_t>(triangle.vertex[0]));
  const TriadPoint& B = Point(static_cast<std::size_t>(triangle.vertex[1]));
  const TriadPoint& C = Point(static_cast<std::size_t>(triangle.vertex[2]));
  // Rounding to floats would spoil the values of B and C themselves.
  for (const TriadPoint* const vertex : {&A, &B, &C})
    if (p == *vertex) return vertex->value;

  const Vector E1 = C - A;
  const Vector E2 = B - A;
  const Vector Q = p - A;
  const double D = E1.GetCrossProduct(E2);
  if (D == 0.0) return A.value;
  const double wC = Q.GetCrossProduct(E2) / D;
  const double wB = E1.GetCrossProduct(Q) / D;
  return A.value + wB * (B.value - A.value) + wC * (C.value - A.value);
}

bool LmvTriadFile::GetInverseCorrections(double north, double east, Vector3d& corrections) const {
  const auto find = [this](double n, double e, Vector3d& found) {
    return GetCorrections(n, e, found);
  };
  return IterateInverse(north, east, tolerance_, find, corrections);
}

bool LmvTriadFile::CheckLimits(double& north, double& east) const {
  return north > northMin_ && north < northMax_ && east > eastMin_ && east < eastMax_;
}
