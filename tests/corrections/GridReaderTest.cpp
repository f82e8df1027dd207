#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/corrections/internal/GridReader.h"
#include "korvelfile/outside/base/Types.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"

namespace {

constexpr int kRows = 75;
constexpr int kColumns = 150;

// A smooth grid, behind it noise of rounded figures, with what breaks smoothness: a hole, a zero
// crossing, zeros of both signs, any bits, huge numbers.
std::vector<float> MakeValues(int values) {
  std::vector<float> grid;
  PrintedRandom random(7);
  const int count = kRows * kColumns * values;
  for (int i = 0; i < count / 2; ++i)
    grid.push_back(0.05F * std::sin(static_cast<float>(i % 977) / 99.0F));
  while (static_cast<int>(grid.size()) < count)
    grid.push_back(static_cast<float>(static_cast<double>(random.Below(2001)) / 1e4 - 0.1));
  grid.back() = -0.0F;
  for (int i = 0; i < 200; ++i) {
    const auto bits = static_cast<std::uint32_t>(random.Bits());
    grid[random.Below(grid.size())] = std::bit_cast<float>(bits);
    grid[random.Below(grid.size())] = 9999.0F;
  }
  return grid;
}

struct GridFile {
  GridLayout layout;
  std::vector<float> grid;  // nodes only
  std::string bytes;

  GridFile(std::int64_t start, int padding, int values)
      : layout{start, 4 * (kColumns * values + padding), values}, grid(MakeValues(values)) {
    bytes.assign(static_cast<std::size_t>(start + kRows * layout.stride), '\x7f');
    for (int row = 0; row < kRows; ++row) {
      for (int i = 0; i < kColumns * values; ++i)
        _Types::FloatToLittleEndianBytes(
            grid[static_cast<std::size_t>(row * kColumns * values + i)],
            reinterpret_cast<unsigned char*>(
                &bytes[static_cast<std::size_t>(start + row * layout.stride + 4 * i)]));
    }
  }

  bool HasSameBits(const NodeWindow& w, const std::vector<float>& nodes) const {
    const auto length = static_cast<std::size_t>(w.columns * layout.values);
    for (int row = 0; row < w.rows; ++row) {
      const std::int64_t first = ((w.row + row) * kColumns + w.column) * layout.values;
      if (std::memcmp(&nodes[static_cast<std::size_t>(row) * length],
                      &grid[static_cast<std::size_t>(first)], 4 * length) != 0)
        return false;
    }
    return true;
  }
};

// Until a change of the files written so far would show.
void WaitUntilSettled() { std::this_thread::sleep_for(std::chrono::milliseconds(70)); }

class GridReaderTest : public testing::Test {
 protected:
  TempFolder folder_;
  std::string path_ = folder_.Path("grid.bin");
  GridReader reader_;
  std::vector<float> nodes_ = std::vector<float>(3 * 16);

  bool Read(const GridFile& file, const NodeWindow& window) {
    return reader_.Read(path_, file.layout, window, nodes_.data());
  }
};

TEST_F(GridReaderTest, EveryNodeComesBackBitForBit) {
  const struct {
    std::int64_t start;
    int padding, values;
  } cases[] = {{106, 0, 1}, {81, 0, 2}, {105, 0, 3}, {64, 10, 1}};
  for (const auto& c : cases) {
    const GridFile file(c.start, c.padding, c.values);
    WriteBytes(path_, file.bytes);
    WaitUntilSettled();
    PrintedRandom random(3);
    for (int i = 0; i < 20000; ++i) {
      const int side = i % 2 == 0 ? 2 : 4;
      const auto below = [&](int limit) {
        return static_cast<std::int64_t>(random.Below(static_cast<std::size_t>(limit)));
      };
      const NodeWindow w{below(kRows - side + 1), below(kColumns - side + 1), side, side};
      ASSERT_TRUE(Read(file, w));
      ASSERT_TRUE(file.HasSameBits(w, nodes_)) << "values " << c.values << ", window " << i;
    }
  }
}

// Each change is made on a file whose blocks are all in use, and is followed by a reading at once.
TEST_F(GridReaderTest, ChangesOnDiskAreSeen) {
  const GridFile file(64, 10, 1);
  const NodeWindow window{40, 20, 2, 2};
  const auto size = static_cast<std::uintmax_t>(file.bytes.size());
  std::string other = file.bytes;
  for (char& byte : other) byte = '\0';
  const struct {
    const char* what;
    std::function<void()> change;
    bool isRead;
  } cases[] = {
      {"written over", [&] { WriteBytes(path_, other); }, true},
      {"replaced",
       [&] {
         WriteBytes(folder_.Path("new"), other);
         std::filesystem::rename(folder_.Path("new"), path_);
       },
       true},
      {"cut off", [&] { std::filesystem::resize_file(path_, size / 4); }, false},
      {"deleted", [&] { std::filesystem::remove(path_); }, false},
  };
  for (const auto& c : cases) {
    WriteBytes(path_, file.bytes);
    WaitUntilSettled();
    for (int i = 0; i < 10; ++i) ASSERT_TRUE(Read(file, window)) << c.what;
    ASSERT_TRUE(file.HasSameBits(window, nodes_)) << c.what;
    c.change();
    ASSERT_EQ(Read(file, window), c.isRead) << c.what;
    EXPECT_TRUE(!c.isRead || nodes_[0] == 0.0F) << c.what;
  }
}

TEST_F(GridReaderTest, WhatTheFileDoesNotHoldIsRefused) {
  GridFile file(106, 0, 1);
  file.bytes.resize(file.bytes.size() - 2);  // half of the last node
  WriteBytes(path_, file.bytes);
  WaitUntilSettled();
  constexpr std::int64_t kFar = std::int64_t{1} << 40;
  const struct {
    const char* what;
    NodeWindow window;
    bool isRead;
  } cases[] = {
      {"but the last node", {kRows - 1, kColumns - 3, 1, 2}, true},
      {"the last node", {kRows - 1, kColumns - 2, 1, 2}, false},
      {"behind the last row", {kRows, 0, 1, 1}, false},
      {"far behind", {kFar, 5, 2, 2}, false},
  };
  for (int i = 0; i < 4; ++i) {  // first from the file, later from blocks
    for (const auto& c : cases) EXPECT_EQ(Read(file, c.window), c.isRead) << c.what;
  }
  EXPECT_FALSE(reader_.Read(path_, {106, 0, 1}, {0, 0, 1, 1}, nodes_.data())) << "no stride";
  EXPECT_FALSE(reader_.Read(path_, {1 << 30, 600, 1}, {0, 0, 1, 1}, nodes_.data())) << "start";
  EXPECT_FALSE(reader_.Read(folder_.Path("none"), file.layout, {0, 0, 1, 1}, nodes_.data()));
}

}  // namespace
