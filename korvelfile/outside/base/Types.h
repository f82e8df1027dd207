#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstdint>
#include <cstring>

/// Numbers as little-endian bytes, the same on any host.
///
/// `bytes` is room for as many bytes as the number has. Safe from any thread.
class _Types {
 public:
  /// A 64-bit IEEE 754 number.
  static double LittleEndianBytesToDouble(const unsigned char* bytes) {
    return std::bit_cast<double>(Join<std::uint64_t>(bytes));
  }
  /// A 32-bit IEEE 754 number.
  static float LittleEndianBytesToFloat(const unsigned char* bytes) {
    return std::bit_cast<float>(Join<std::uint32_t>(bytes));
  }
  /// An unsigned number of 32 bits.
  static std::uint32_t LittleEndianBytesToUInt32(const unsigned char* bytes) {
    return Join<std::uint32_t>(bytes);
  }
  /// A number of 32 bits in two's complement.
  static std::int32_t LittleEndianBytesToInt32(const unsigned char* bytes) {
    return static_cast<std::int32_t>(Join<std::uint32_t>(bytes));
  }
  /// An unsigned number of 16 bits.
  static std::uint16_t LittleEndianBytesToUInt16(const unsigned char* bytes) {
    return Join<std::uint16_t>(bytes);
  }
  /// A number of 16 bits in two's complement.
  static std::int16_t LittleEndianBytesToInt16(const unsigned char* bytes) {
    return static_cast<std::int16_t>(Join<std::uint16_t>(bytes));
  }

  /// Eight bytes of a 64-bit IEEE 754 number.
  static void DoubleToLittleEndianBytes(double value, unsigned char* bytes) {
    Split(std::bit_cast<std::uint64_t>(value), bytes);
  }
  /// Four bytes of a 32-bit IEEE 754 number.
  static void FloatToLittleEndianBytes(float value, unsigned char* bytes) {
    Split(std::bit_cast<std::uint32_t>(value), bytes);
  }
  /// Four bytes of an unsigned number.
  static void UInt32ToLittleEndianBytes(std::uint32_t value, unsigned char* bytes) {
    Split(value, bytes);
  }

 private:
  template <class Word>
  using Bytes = std::array<unsigned char, sizeof(Word)>;

  // The compiler makes one load or store of each.
  template <std::unsigned_integral Word>
  static Word Join(const unsigned char* bytes) {
    Bytes<Word> ordered;
    std::memcpy(ordered.data(), bytes, sizeof(Word));
    if constexpr (std::endian::native == std::endian::big)
      std::reverse(ordered.begin(), ordered.end());
    return std::bit_cast<Word>(ordered);
  }

  template <std::unsigned_integral Word>
  static void Split(Word word, unsigned char* bytes) {
    auto ordered = std::bit_cast<Bytes<Word>>(word);
    if constexpr (std::endian::native == std::endian::big)
      std::reverse(ordered.begin(), ordered.end());
    std::memcpy(bytes, ordered.data(), sizeof(Word));
  }
};
