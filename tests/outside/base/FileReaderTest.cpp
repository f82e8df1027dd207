#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/FileReader.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} << 10U;

class FileReaderTest : public testing::Test {
 protected:
  // A reader on a file of these bytes.
  void Open(std::string_view bytes) {
    WriteBytes(path_, bytes);
    ASSERT_TRUE(reader_.Open(path_));
  }

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    std::string_view line;
    while (reader_.ReadLine(line)) lines.emplace_back(line);
    return lines;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("file");
  FileReader reader_;
};

// What a line is, told the slow way.
std::vector<std::string> LinesOf(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t feed = std::min(bytes.find('\n', begin), bytes.size());
    std::string line = bytes.substr(begin, feed - begin);
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
    begin = feed + 1;
  }
  return lines;
}

const struct {
  const char* what;
  std::string bytes;
  std::vector<std::string> lines;
} kFiles[] = {
    {"nothing", "", {}},
    {"CR LF", "a\r\nb\r\n", {"a", "b"}},
    {"LF", "a\nb\n", {"a", "b"}},
    {"no ending", "a\r\nb", {"a", "b"}},
    {"CR at the end", "a\r", {"a"}},
    {"only the CR before the LF", "a\r\r\nb\rc\n", {"a\r", "b\rc"}},
    {"empty lines", "\n\r\n\n", {"", "", ""}},
    {"zero bytes", std::string("a\0b\n\0\n", 6), {std::string("a\0b", 3), std::string(1, '\0')}},
};

TEST_F(FileReaderTest, LineEndings) {
  for (const auto& c : kFiles) {
    WriteBytes(path_, c.bytes);
    FileReader reader;
    ASSERT_TRUE(reader.Open(path_));
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.ReadLine(line)) lines.emplace_back(line);
    EXPECT_EQ(lines, c.lines) << c.what;
    EXPECT_FALSE(reader.HasFailed()) << c.what;
  }
}

TEST_F(FileReaderTest, LinesAroundTheEndOfTheBuffer) {
  for (std::size_t before = kBufferSize - 3; before <= kBufferSize + 1; ++before) {
    const std::string bytes = std::string(before, 'x') + "\r\nsecond\r\n";
    WriteBytes(path_, bytes);
    FileReader reader;
    ASSERT_TRUE(reader.Open(path_));
    std::string_view line;
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line.size(), before);
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line, "second") << before;
    EXPECT_FALSE(reader.ReadLine(line));
  }
}

TEST_F(FileReaderTest, LinesOfRandomLength) {
  PrintedRandom random(20240616);
  std::string bytes;
  while (bytes.size() < 5 * kBufferSize) {
    bytes += std::string(random.Below(random.Below(20) == 0 ? 2 * kBufferSize : 200), 'x');
    bytes += random.Text(3, "\r\n\nab");
  }
  Open(bytes);
  EXPECT_EQ(Lines(), LinesOf(bytes));
}

TEST_F(FileReaderTest, AnAbsurdLineIsAFailure) {
  Open("first\n");
  std::filesystem::resize_file(path_, FileReader::kLongestLine + 100);
  EXPECT_EQ(Lines(), std::vector<std::string>{"first"});
  EXPECT_TRUE(reader_.HasFailed());
  char byte = 0;
  EXPECT_EQ(reader_.Read(&byte, 0), 0U);
}

TEST_F(FileReaderTest, BytesAndLinesInTurn) {
  Open("12345\r\nline\r\nrest");
  char bytes[16] = {};
  EXPECT_EQ(reader_.Read(bytes, 5), 5U);
  EXPECT_EQ(std::string_view(bytes, 5), "12345");
  std::string_view line;
  ASSERT_TRUE(reader_.ReadLine(line));
  EXPECT_EQ(line, "");
  ASSERT_TRUE(reader_.ReadLine(line));
  EXPECT_EQ(line, "line");
  EXPECT_EQ(reader_.Read(bytes, sizeof bytes), 4U);
  EXPECT_FALSE(reader_.ReadLine(line));
  ASSERT_TRUE(reader_.Seek(7));
  ASSERT_TRUE(reader_.ReadLine(line));
  EXPECT_EQ(line, "line");
  ASSERT_TRUE(reader_.Seek(1000));
  EXPECT_FALSE(reader_.ReadLine(line));
  EXPECT_FALSE(reader_.Seek(-1));
  EXPECT_EQ(reader_.Size(), 17);
}

TEST_F(FileReaderTest, AReadThatFailsSticks) {
  ASSERT_TRUE(reader_.Open("/proc/self/mem"));  // nothing is mapped at its start
  char byte = 0;
  EXPECT_EQ(reader_.Read(&byte, 1), 0U);
  EXPECT_TRUE(reader_.HasFailed());
  std::string_view line;
  EXPECT_FALSE(reader_.ReadLine(line));
}

}  // namespace
