// Writing of correction grids: files are created, updated in place and widened.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/internal/CcgHeader.h"
#include "korvelfile/corrections/internal/CcgRaster.h"
#include "korvelfile/corrections/internal/FloatStream.h"
#include "korvelfile/outside/base/GeoFile.h"

namespace {

constexpr std::uint64_t kFloatSize = 4;
constexpr std::ios::openmode kCreate = std::ios::out | std::ios::binary;
constexpr std::ios::openmode kKeepContent = kCreate | std::ios::in;

std::uint64_t SizeOfNodes(const CcgFileInfo& grid) { return CountOfFloats(grid) * kFloatSize; }

// False for a file that lacks most of the nodes that its header tells of, and many of them: it is
// no grid that was cut off, its header lies.
bool HoldsItsNodes(const CcgFileInfo& grid) {
  constexpr std::uint64_t kMostOfTheFile = 4;
  constexpr std::uint64_t kFewBytes = std::uint64_t{1} << 20U;
  const std::int64_t size = std::max<std::int64_t>(_FileIO::FileSize(grid.fileName), 0);
  return SizeOfNodes(grid) <=
         std::max(kMostOfTheFile * static_cast<std::uint64_t>(size), kFewBytes);
}

// False for grids so far apart that nearly all of what holds both would be empty.
bool IsInProportion(const CcgFileInfo& widened, const CcgFileInfo& old, const CcgFileInfo& grid) {
  constexpr std::uint64_t kMostOfTheNodes = 64;
  constexpr std::uint64_t kFewBytes = std::uint64_t{16} << 20U;
  return SizeOfNodes(widened) <=
         std::max(kMostOfTheNodes * (SizeOfNodes(old) + SizeOfNodes(grid)), kFewBytes);
}

bool HasPositions(const CcgFileInfo& grid) {
  return NodePosition(grid, grid.rows - 1, grid.columns - 1) >= 0;
}

// False if a reader would take the file for another raster than it is written for.
bool IsReadable(const CcgFileInfo& header) {
  CcgFileInfo read = header;
  read.DeriveRowsAndColumns();
  return header.formatVersion <= kCcgVersion && read.rows == header.rows &&
         read.columns == header.columns && HasPositions(header) &&
         CcgWindow(header, header).IsInside();
}

bool Open(std::ofstream& out, const std::string& path, std::ios::openmode mode) {
  out.open(path, mode);
  if (!out.is_open()) return false;
  out.exceptions(std::ios::failbit | std::ios::badbit);
  return true;
}

bool Close(std::ofstream& out) try {
  out.close();
  return true;
} catch (const std::ios_base::failure&) {
  return false;
}

GeoStatus Result(bool success) { return success ? GeoSuccess : GeoFileError; }

}  // namespace

GeoStatus CcgFile::CreateOrUpdateFile(const CcgInputGrid& grid) {
  // Without a single value there is nothing to write, however many rows the grid has.
  if (grid.residuals.empty() || CountOfFloats(grid) != grid.residuals.size()) return GeoFileError;
  if (!_FileIO::Exists(grid.fileName)) return Create(grid);
  if (!ReadHeader(grid.fileName)) return GeoFileError;
  return info_.CanUpdateWithoutExpansionWith(grid) ? Update(grid) : Expand(grid);
}

GeoStatus CcgFile::Create(const CcgInputGrid& grid) {
  CcgFileInfo header = grid;
  const bool hasVersion = header.formatVersion != 0 || header.dataOffset != 0;
  SetCcgVersion(header, hasVersion ? header.formatVersion : kCcgVersion);
  std::ofstream out;
  if (!IsReadable(header) || !Open(out, header.fileName, kCreate)) return GeoFileError;
  DropCache();
  info_ = header;
  return Result(WriteHeader(out) && WriteData(out, grid) && Close(out));
}

GeoStatus CcgFile::Update(const CcgInputGrid& grid) {
  if (grid.GetNumberOfValues() != info_.GetNumberOfValues()) return GeoGridMismatch;
  std::ofstream out;
  if (!HasPositions(info_) || !HoldsItsNodes(info_) || !Open(out, info_.fileName, kKeepContent)) {
    return GeoFileError;
  }
  return Result(FillUp(out) && WriteData(out, grid) && Close(out));
}

GeoStatus CcgFile::Expand(const CcgInputGrid& grid) {
  if (!std::isfinite(grid.northMax) || !std::isfinite(grid.eastMin)) return GeoFileError;
  CcgFileInfo widened = info_;
  if (!widened.ExpandHeaderWith(grid)) return GeoGridMismatch;
  if (!HasPositions(widened) || !HoldsItsNodes(info_) || !IsInProportion(widened, info_, grid)) {
    return GeoFileError;
  }
  CcgInputGrid old(info_);
  CreateGridFromFile(old);
  CcgInputGrid merged(widened);
  CopyNodes(old, merged);
  CopyNodes(grid, merged);
  std::ofstream out;
  if (!Open(out, info_.fileName, kKeepContent)) return GeoFileError;
  info_ = widened;
  return Result(WriteHeader(out) && WriteAllData(out, merged) && Close(out));
}

bool CcgFile::WriteHeader(std::ofstream& out) const try {
  const std::string bytes = EncodeCcgHeader(info_);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return true;
} catch (const std::ios_base::failure&) {
  return false;
}

bool CcgFile::WriteData(std::ofstream& out, const CcgInputGrid& grid) const try {
  const CcgWindow window(info_, grid);
  if (!window.IsInside()) return false;
  const auto values = static_cast<std::size_t>(info_.GetNumberOfValues());
  const std::size_t rowSize = static_cast<std::size_t>(grid.columns) * values;
  const float* floats = grid.residuals.data();
  for (int row = 0; row < window.rows; ++row, floats += rowSize) {
    out.seekp(NodePosition(info_, window.row + row, window.column));
    WriteFloats(out, {floats, static_cast<std::size_t>(window.columns) * values});
  }
  return true;
} catch (const std::ios_base::failure&) {
  return false;
}

bool CcgFile::WriteAllData(std::ofstream& out, const CcgInputGrid& grid) const try {
  if (grid.residuals.empty()) return false;
  out.seekp(info_.dataOffset);
  WriteFloats(out, grid.residuals);
  return true;
} catch (const std::ios_base::failure&) {
  return false;
}

// A file that was cut off gets nodes without a value: a gap left in it would read as zeros, which
// are values.
bool CcgFile::FillUp(std::ofstream& out) const try {
  out.seekp(0, std::ios::end);
  const std::streamoff bytes = out.tellp() - std::streamoff{info_.dataOffset};
  const std::uint64_t there = static_cast<std::uint64_t>(std::max<std::streamoff>(bytes, 0)) / 4;
  const std::uint64_t wanted = CountOfFloats(info_);
  if (there >= wanted) return true;
  out.seekp(static_cast<std::streamoff>(info_.dataOffset + there * kFloatSize));
  WriteFloats(out, std::vector<float>(wanted - there, CcgInputGrid::kMissing));
  return true;
} catch (const std::ios_base::failure&) {
  return false;
}

// Nodes that the file is too short for stay without a value.
void CcgFile::CreateGridFromFile(CcgInputGrid& grid) const {
  std::string path;
  if (grid.residuals.empty() || _FileIO::GetCIFileName(info_.fileName, path) == 0) return;
  std::ifstream in(path, std::ios::binary);
  in.seekg(info_.dataOffset);
  ReadFloats(in, grid.residuals);
}
