#include <array>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Types.h"

namespace {

using Bytes4 = std::array<unsigned char, 4>;
using Bytes8 = std::array<unsigned char, 8>;

TEST(Types, LowestByteComesFirst) {
  constexpr Bytes8 kOneAndAHalf{0, 0, 0, 0, 0, 0, 0xF8, 0x3F};
  constexpr Bytes4 kMinusTwo{0xFE, 0xFF, 0xFF, 0xFF};
  constexpr Bytes4 kPi{0xDB, 0x0F, 0x49, 0x40};
  EXPECT_EQ(_Types::LittleEndianBytesToDouble(kOneAndAHalf.data()), 1.5);
  EXPECT_EQ(_Types::LittleEndianBytesToFloat(kPi.data()), 3.14159274F);
  EXPECT_EQ(_Types::LittleEndianBytesToUInt32(kMinusTwo.data()), 0xFFFFFFFEU);
  EXPECT_EQ(_Types::LittleEndianBytesToInt32(kMinusTwo.data()), -2);
  EXPECT_EQ(_Types::LittleEndianBytesToUInt16(kPi.data()), 0x0FDB);
  EXPECT_EQ(_Types::LittleEndianBytesToInt16(kMinusTwo.data()), -2);

  Bytes8 bytes8{};
  _Types::DoubleToLittleEndianBytes(1.5, bytes8.data());
  EXPECT_EQ(bytes8, kOneAndAHalf);
  Bytes4 bytes4{};
  _Types::FloatToLittleEndianBytes(3.14159274F, bytes4.data());
  EXPECT_EQ(bytes4, kPi);
  _Types::UInt32ToLittleEndianBytes(0xFFFFFFFEU, bytes4.data());
  EXPECT_EQ(bytes4, kMinusTwo);
}

}  // namespace
