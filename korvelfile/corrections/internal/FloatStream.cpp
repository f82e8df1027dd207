#include "korvelfile/corrections/internal/FloatStream.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "korvelfile/outside/base/Types.h"

namespace {

constexpr std::size_t kFloatSize = 4;
constexpr std::size_t kFloatsAtOnce = 2048;

using Bytes = std::array<char, kFloatsAtOnce * kFloatSize>;

unsigned char* Place(Bytes& bytes, std::size_t index) {
  return reinterpret_cast<unsigned char*>(bytes.data() + index * kFloatSize);
}

}  // namespace

void WriteFloats(std::ostream& out, std::span<const float> floats) {
  Bytes bytes;
  while (!floats.empty()) {
    const std::size_t count = std::min(floats.size(), kFloatsAtOnce);
    for (std::size_t i = 0; i < count; ++i) {
      _Types::FloatToLittleEndianBytes(floats[i], Place(bytes, i));
    }
    out.write(bytes.data(), static_cast<std::streamsize>(count * kFloatSize));
    floats = floats.subspan(count);
  }
}

void ReadFloats(std::istream& in, std::span<float> floats) {
  Bytes bytes;
  while (!floats.empty() && in) {
    const std::size_t wanted = std::min(floats.size(), kFloatsAtOnce);
    in.read(bytes.data(), static_cast<std::streamsize>(wanted * kFloatSize));
    const std::size_t count = static_cast<std::size_t>(in.gcount()) / kFloatSize;
    for (std::size_t i = 0; i < count; ++i) {
      floats[i] = _Types::LittleEndianBytesToFloat(Place(bytes, i));
    }
    floats = floats.subspan(count);
  }
}
