/// @file
/// What tests of files of items share: reading, writing, and files that are spoilt.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

/// A file of items in a folder of its own.
template <class File>
class ItemFileTest : public testing::Test {
 protected:
  static constexpr int kFailure = -9;

  template <class... Arguments>
  explicit ItemFileTest(const std::string& name, const Arguments&... ofFile)
      : path_(folder_.Path(name)), file_(ofFile...) {
    SetGoldenIdentity();
  }

  /// Reads a file of these bytes anew.
  int Read(const std::string& bytes, File& file) {
    file.UnUseCollector();
    WriteBytes(path_, bytes);
    if constexpr (requires { file.ChooseFile(path_.c_str()); })
      file.ChooseFile(path_.c_str());
    else
      file.SetFile(Widen(path_));
    return file.UseCollector();
  }
  int Read(const std::string& bytes) { return Read(bytes, file_); }

  /// What a file that was just read becomes when it is written.
  std::string Written() {
    std::filesystem::remove(path_);
    EXPECT_EQ(file_.AutoSave(), 0);
    return ReadBytes(path_);
  }

  void ExpectGolden(const std::string& golden, const std::string& page) {
    ASSERT_EQ(Read(golden), 0);
    EXPECT_EQ(Written(), golden);
    ExpectOnPage(page, golden);
  }

  /// Cut off before `needed` bytes it's refused; with any bytes changed, what can be read at all
  /// writes a file that reads as the same.
  void ExpectReadOrRefused(const std::string& golden, std::size_t needed) {
    PrintedRandom random(4711);
    for (std::size_t i = 0; i < golden.size(); ++i) {
      const int cutOff = Read(golden.substr(0, i));
      ASSERT_TRUE(cutOff == kFailure || (cutOff == 0 && i >= needed)) << i;
      const int result = Read(random.Mangled(golden));
      ASSERT_TRUE(result == 0 || result == kFailure) << i;
      if (result != 0) continue;
      const std::string once = Written();
      ASSERT_EQ(Read(once), 0) << i;
      ASSERT_EQ(Written(), once) << i;
    }
  }

  TempFolder folder_;
  std::string path_;
  CaughtMessages messages_;
  File file_;
};
