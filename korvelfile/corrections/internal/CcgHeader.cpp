#include "korvelfile/corrections/internal/CcgHeader.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "korvelfile/corrections/CcgFileInfo.h"
#include "korvelfile/outside/base/Types.h"

namespace {

// All numbers in here stand in files and never change.
constexpr std::string_view kMagic = "KVT Coordinate Correction Grid";
constexpr int kHeightInterpolationSince = 5;
constexpr int kApproxCorrectionsSince = 3;

template <class Value>
struct Field {
  Value CcgFileInfo::*member;
  int since;  // first version that holds it
};

template <class Value>
constexpr Field<Value> MakeField(Value CcgFileInfo::*member, int since = 0) {
  return {member, since};
}

// What follows the magic, without gaps. The version comes first: it rules the others.
constexpr auto kFields =
    std::make_tuple(MakeField(&CcgFileInfo::formatVersion), MakeField(&CcgFileInfo::correctionType),
                    MakeField(&CcgFileInfo::planeInterpolation),
                    MakeField(&CcgFileInfo::heightInterpolation, kHeightInterpolationSince),
                    MakeField(&CcgFileInfo::northMin), MakeField(&CcgFileInfo::northMax),
                    MakeField(&CcgFileInfo::eastMin), MakeField(&CcgFileInfo::eastMax),
                    MakeField(&CcgFileInfo::northSpacing), MakeField(&CcgFileInfo::eastSpacing),
                    MakeField(&CcgFileInfo::approxCorrections, kApproxCorrectionsSince));

template <class Codec, class Info>
void Transfer(Codec& codec, Info& info) {
  const auto one = [&](const auto& field) {
    if (info.formatVersion >= field.since) codec.Stream(info.*field.member);
  };
  std::apply([&](const auto&... fields) { (one(fields), ...); }, kFields);
}

class Decoder {
 public:
  explicit Decoder(const unsigned char* bytes) : next_(bytes) {}

  void Stream(std::uint8_t& value) { value = *next_++; }
  void Stream(int& value) { value = *next_++; }
  void Stream(double& value) {
    value = _Types::LittleEndianBytesToDouble(next_);
    next_ += sizeof(double);
  }
  void Stream(Vector3d& value) {
    Stream(value.x);
    Stream(value.y);
    Stream(value.z);
  }

  const unsigned char* Next() const { return next_; }

 private:
  const unsigned char* next_;
};

class Encoder {
 public:
  explicit Encoder(std::string& bytes) : bytes_(bytes) {}

  void Stream(int value) { bytes_ += static_cast<char>(value); }
  void Stream(double value) {
    std::array<unsigned char, sizeof(double)> bytes;
    _Types::DoubleToLittleEndianBytes(value, bytes.data());
    bytes_.append(bytes.begin(), bytes.end());
  }
  void Stream(const Vector3d& value) {
    Stream(value.x);
    Stream(value.y);
    Stream(value.z);
  }

 private:
  std::string& bytes_;
};

}  // namespace

bool DecodeCcgHeader(const std::array<unsigned char, kCcgHeaderRoom>& bytes, CcgFileInfo& info) {
  const unsigned char* const version = bytes.data() + kMagic.size();
  if (!std::equal(bytes.data(), version, kMagic.begin()) || *version > kCcgVersion) return false;
  Decoder decoder(version);
  Transfer(decoder, info);
  info.dataOffset = static_cast<std::uint8_t>(decoder.Next() - bytes.data());
  if (info.formatVersion < kHeightInterpolationSince) {
    info.heightInterpolation = info.planeInterpolation;
  }
  return true;
}

std::string EncodeCcgHeader(const CcgFileInfo& info) {
  std::string bytes(kMagic);
  Encoder encoder(bytes);
  Transfer(encoder, info);
  return bytes;
}

void SetCcgVersion(CcgFileInfo& info, std::uint8_t version) {
  info.formatVersion = version;
  info.dataOffset = static_cast<std::uint8_t>(EncodeCcgHeader(info).size());
}
