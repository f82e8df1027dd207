// Grids in the `.grd` format, made of BYN files and of texts. Sources are read and targets written
// piece by piece: memory stays the same whatever their size.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/corrections/internal/BynHeader.h"
#include "korvelfile/corrections/internal/GrdHeader.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Types.h"

namespace {

constexpr std::int16_t kNoBynValue = 32767;
constexpr float kNoGrdValue = 9999.0F;
constexpr std::size_t kPiece = std::size_t{1} << 16U;  // bytes
constexpr double kHeightsBetweenReports = 16384.0;

bool ReadBynHeader(GeoFile& file, const char* path, BynHeader::Bytes& bytes) {
  return path && _FileIO::OpenFile(file, path, _FileIO::kRead, false) == 0 &&
         _FileIO::ReadFile(file, bytes.data(), bytes.size()) == 0;
}

// A dot at the end of a name begins an extension, if an empty one.
std::string TargetOf(const char* source) {
  std::string_view name(source);
  if (name.ends_with('.')) name.remove_suffix(1);
  Korvel::FilePathT path{std::string(name)};
  path.SetExtension("grd");
  return path.GetFullpath();
}

// Writes a `.grd` file; what is missing to a whole row at its end isn't filled up.
class GrdWriter {
 public:
  bool Open(const char* source, const GrdHeader& header) {
    const std::string path = TargetOf(source);
    columns_ = header.GetColumns();
    if (columns_ == 0 || path == source) return false;
    if (_FileIO::OpenFile(file_, path, _FileIO::kReplace, false) != 0) return false;
    const GrdHeader::Bytes bytes = header.ToBytes();
    piece_.insert(piece_.end(), bytes.begin(), bytes.end());
    return true;
  }

  void Put(float height) {
    Append(height);
    if (++inRow_ < columns_) return;
    for (; inRow_ < GrdStride(columns_); ++inRow_) Append(0.0F);
    inRow_ = 0;
  }

  bool Close() {
    Flush();
    return _FileIO::CloseFile(file_) == 0;
  }

 private:
  void Append(float value) {
    std::array<unsigned char, 4> bytes;
    _Types::FloatToLittleEndianBytes(value, bytes.data());
    piece_.append(bytes.begin(), bytes.end());
    if (piece_.size() >= kPiece) Flush();
  }

  void Flush() {
    _FileIO::WriteFile(file_, piece_);  // a failure shows when the file is closed
    piece_.clear();
  }

  GeoFile file_;
  std::string piece_;
  std::int64_t columns_ = 0;
  std::int64_t inRow_ = 0;
};

float HeightFrom(const unsigned char* bytes, const BynHeader& header) {
  if (header.valueSize == 4)
    return static_cast<float>(_Types::LittleEndianBytesToInt32(bytes) / header.factor);
  const std::int16_t value = _Types::LittleEndianBytesToInt16(bytes);
  return value == kNoBynValue ? kNoGrdValue : static_cast<float>(value / header.factor);
}

// Reads whole values until the source ends; one that is cut off is left out.
void CopyHeights(GeoFile& source, const BynHeader& header, std::endian order, GrdWriter& target,
                 const GrdFile::Progress& progress) {
  const auto size = static_cast<std::size_t>(header.valueSize);
  const std::int64_t end = _FileIO::FileSize(source);
  std::int64_t done = BynHeader::kSize;
  std::string piece;
  while (done < end) {
    piece.resize(std::min(kPiece, static_cast<std::size_t>(end - done)));
    if (_FileIO::ReadFile(source, piece.data(), piece.size()) != 0) return;
    for (std::size_t at = 0; at + size <= piece.size(); at += size) {
      std::array<unsigned char, 4> bytes{};
      std::memcpy(bytes.data(), &piece[at], size);
      if (order == std::endian::big) std::reverse(bytes.begin(), bytes.begin() + header.valueSize);
      target.Put(HeightFrom(bytes.data(), header));
    }
    done += static_cast<std::int64_t>(piece.size());
    if (progress) progress(static_cast<double>(done) / static_cast<double>(end));
  }
}

// Reads numbers until there is none.
void CopyHeights(GeoFile& source, const GrdHeader& header, GrdWriter& target,
                 const GrdFile::Progress& progress) {
  const double all = static_cast<double>(header.GetRows()) * header.GetColumns();
  double done = 0.0;
  double height = 0.0;
  while (_FileIO::ReadADouble(source, height) == 0) {
    target.Put(static_cast<float>(height));
    if (progress && std::fmod(++done, kHeightsBetweenReports) == 0.0)
      progress(std::min(done / all, 1.0));
  }
}

}  // namespace

bool GrdFile::ConvertCanadaBYN(const char* path) {
  return ConvertCanadaBYN(path, std::endian::little);
}

bool GrdFile::ConvertCanadaBYN(const char* path, std::endian heights, const Progress& progress) {
  GeoFile source;
  BynHeader::Bytes bytes;
  if (!ReadBynHeader(source, path, bytes)) return false;
  const BynHeader header(bytes);
  GrdWriter target;
  if (!target.Open(path, header.grid)) return false;
  if (header.valueSize == 2 || header.valueSize == 4)
    CopyHeights(source, header, heights, target, progress);
  return _FileIO::CloseFile(source) == 0 && target.Close();
}

std::optional<std::endian> GrdFile::BynHeightOrder(const char* path) {
  GeoFile file;
  BynHeader::Bytes bytes;
  if (!ReadBynHeader(file, path, bytes)) return std::nullopt;
  const BynHeader header(bytes);
  if (header.order > 1) return std::nullopt;
  return header.order == 0 ? std::endian::big : std::endian::little;
}

bool GrdFile::ConvertText(const char* path, int magic, const Progress& progress) {
  GeoFile source;
  if (!path || _FileIO::OpenFile(source, path, _FileIO::kRead, true) != 0) return false;
  GrdHeader header;
  header.magic = static_cast<std::uint32_t>(magic);
  if (!header.ReadNumbers(
          [&](double& number) { return _FileIO::ReadADouble(source, number) == 0; }))
    return false;
  GrdWriter target;
  if (!target.Open(path, header)) return false;
  CopyHeights(source, header, target, progress);
  return _FileIO::CloseFile(source) == 0 && target.Close();
}
