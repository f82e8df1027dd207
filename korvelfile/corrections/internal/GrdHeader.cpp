#include "korvelfile/corrections/internal/GrdHeader.h"

#include <limits>

#include "korvelfile/outside/base/Types.h"

namespace {

constexpr std::size_t kFirstNumber = 4;
constexpr std::size_t kNumberSize = 8;

std::int32_t Count(double extent, double spacing) {
  const double count = extent / spacing + 1.5;
  const bool isSensible = count >= 1.0 && count <= std::numeric_limits<std::int32_t>::max();
  return isSensible ? static_cast<std::int32_t>(count) : 0;
}

}  // namespace

const GrdHeader::Numbers GrdHeader::kNumbers{&GrdHeader::south,      &GrdHeader::north,
                                             &GrdHeader::west,       &GrdHeader::east,
                                             &GrdHeader::rowSpacing, &GrdHeader::columnSpacing};

GrdHeader GrdHeader::FromBytes(const Bytes& bytes) {
  GrdHeader header;
  header.magic = _Types::LittleEndianBytesToUInt32(bytes.data());
  std::size_t at = kFirstNumber;
  for (double GrdHeader::*number : kNumbers) {
    header.*number = _Types::LittleEndianBytesToDouble(&bytes[at]);
    at += kNumberSize;
  }
  return header;
}

GrdHeader::Bytes GrdHeader::ToBytes() const {
  Bytes bytes{};
  _Types::UInt32ToLittleEndianBytes(magic, bytes.data());
  std::size_t at = kFirstNumber;
  for (double GrdHeader::*number : kNumbers) {
    _Types::DoubleToLittleEndianBytes(this->*number, &bytes[at]);
    at += kNumberSize;
  }
  return bytes;
}

std::int32_t GrdHeader::GetRows() const { return Count(north - south, rowSpacing); }

std::int32_t GrdHeader::GetColumns() const { return Count(east - west, columnSpacing); }

GrdHeader GrdHeader::Scaled(double factor) const {
  GrdHeader scaled = *this;
  for (double GrdHeader::*number : kNumbers) scaled.*number *= factor;
  return scaled;
}
