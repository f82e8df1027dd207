// A process that dies while it saves.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <set>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int kKills = 300;
constexpr int kPoints = 6000;  // about 300 kB, more than the writer's buffer

void Fill(PxyCoordinateFile& file, const std::string& path, const std::string& prefix) {
  file.ChooseFile(path.c_str());
  file.InitAndUseCollectorWithoutFuckingDisk();
  for (int i = 0; i < kPoints; ++i) {
    file.InsertItem(new PointDataItem({6783172.777 + i, 531279.279, 21.172},
                                      prefix + std::to_string(i), "121", "", ""),
                    -1);
  }
}

std::string Saved(PxyCoordinateFile& file, const std::string& path) {
  file.FlagDirty();
  EXPECT_EQ(file.SaveCollector(), 0);
  return ReadBytes(path);
}

class KilledWriterTest : public testing::Test {
 protected:
  KilledWriterTest() {
    SetGoldenIdentity();
    Fill(first_, path_, "FIRST");
    Fill(second_, path_, "2nd");
    const std::string first = Saved(first_, path_);
    const auto before = steady_clock::now();
    contents_ = {first, Saved(second_, path_)};
    const auto save = std::chrono::duration_cast<microseconds>(steady_clock::now() - before);
    longestLife_ = static_cast<std::size_t>(2 * save.count()) + 2000;
  }

  // A child that saves the two contents in turn for ever.
  pid_t StartWriter() {
    const pid_t child = fork();
    if (child != 0) return child;
    for (;;) {
      for (PxyCoordinateFile* file : {&first_, &second_}) {
        file->FlagDirty();
        if (file->SaveCollector() != 0) _exit(1);
      }
    }
  }

  // Removes the unfinished files that a killed writer can't; how many there were.
  int RemoveUnfinished(pid_t writer) {
    int count = 0;
    for (const std::string& name : folder_.Names()) {
      if (name == "job.geo") continue;
      EXPECT_TRUE(name.starts_with(".job.geo." + std::to_string(writer)) && name.ends_with(".tmp"))
          << name;
      std::filesystem::remove(folder_.Path(name));
      ++count;
    }
    return count;
  }

  CaughtMessages messages_;
  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
  PxyCoordinateFile first_{false};
  PxyCoordinateFile second_{false};
  std::set<std::string> contents_;
  std::size_t longestLife_ = 0;  // of a writer, in microseconds: a few saves
};

TEST_F(KilledWriterTest, OneOfTheTwoFilesIsThereWhole) {
  ASSERT_EQ(contents_.size(), 2U);
  PrintedRandom random(20240617);
  std::set<std::string> seen;
  int unfinished = 0;
  for (int i = 0; i < kKills; ++i) {
    const pid_t writer = StartWriter();
    ASSERT_GT(writer, 0);
    std::this_thread::sleep_for(microseconds(random.Below(longestLife_)));
    kill(writer, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer gave up by itself";
    const std::string bytes = ReadBytes(path_);
    ASSERT_TRUE(contents_.contains(bytes)) << "kill " << i << " left " << bytes.size() << " bytes";
    seen.insert(bytes);
    unfinished += RemoveUnfinished(writer);
  }
  RecordProperty("KillsWithinASave", unfinished);
  EXPECT_EQ(seen, contents_) << "the writer never got to save";
  EXPECT_GT(unfinished, 0) << "no kill hit a save";
}

}  // namespace
