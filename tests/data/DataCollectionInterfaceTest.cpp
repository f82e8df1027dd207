#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/DataCollectionInterface.h"
#include "korvelfile/data/FileInfo.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kWriting = "writing changes to file";
constexpr const char* kInUse = "Can't Init collector because someone is using the collector!";

// Notes the file operations as letters: Read, Write, Create, No disk, Free.
class Notebook : public DataCollectionInterface {
 public:
  std::string calls;
  int readResult = 0;
  int writeResult = 0;

  std::string TakeCalls() { return std::exchange(calls, {}); }

 private:
  int InitCollectorFileNoDisk() override { return Note('N', 0); }
  int ReadCollectorFile() override { return Note('R', readResult); }
  int WriteCollectorFile() override { return Note('W', writeResult); }
  int CreateCollectorFile() override { return Note('C', -9); }
  void FreeCollector() override { Note('F', 0); }

  int Note(char call, int result) {
    calls += call;
    return result;
  }
};

using Step = int (*)(Notebook&);

int Use(Notebook& n) { return n.UseCollector(); }
int UnUse(Notebook& n) { return n.UnUseCollector(); }
int Init(Notebook& n) { return n.InitCollector(); }
int InitNoDisk(Notebook& n) { return n.InitAndUseCollectorWithoutFuckingDisk(); }
int Save(Notebook& n) { return n.SaveCollector(); }
int AutoSave(Notebook& n) { return n.AutoSave(); }
int Dirty(Notebook& n) {
  n.FlagDirty();
  return 0;
}
int FailRead(Notebook& n) { return n.readResult = -9; }
int HealRead(Notebook& n) { return n.readResult = 0; }
int FailWrite(Notebook& n) { return n.writeResult = -1; }

// A step with its result, the file operations it calls, and its message.
struct Expected {
  Step step;
  int result;
  const char* calls;
  const char* message = nullptr;
};

TEST(DataCollectionInterface, Life) {
  const struct {
    const char* what;
    std::vector<Expected> steps;
  } kLives[] = {
      {"unused", {{UnUse, 1, ""}}},
      {"one user", {{Use, 0, "R"}, {UnUse, 0, "F"}, {UnUse, 1, ""}}},
      {"two users",
       {{Use, 0, "R"},
        {Use, 0, ""},
        {Dirty, 0, ""},
        {UnUse, 0, ""},
        {UnUse, 0, "WF", kWriting},
        {Use, 0, "R"},
        {UnUse, 0, "F"}}},
      {"failed read",
       {{FailRead, -9, ""},
        {Use, -9, "R"},
        {UnUse, 1, ""},
        {Use, -9, "R"},
        {HealRead, 0, ""},
        {Use, 0, "R"},
        {UnUse, 0, "F"}}},
      {"failed write",
       {{Use, 0, "R"}, {Dirty, 0, ""}, {FailWrite, -1, ""}, {UnUse, 0, "WF", kWriting}}},
      {"created", {{Init, 0, "C"}, {Init, 0, "C"}, {UnUse, 1, ""}, {Use, 0, "R"}}},
      {"created while in use",
       {{Use, 0, "R"}, {Init, 1, "", kInUse}, {InitNoDisk, 1, "", kInUse}, {UnUse, 0, "F"}}},
      {"in memory",
       {{InitNoDisk, 0, "N"},
        {InitNoDisk, 1, "", kInUse},
        {Use, 0, ""},
        {UnUse, 0, ""},
        {Dirty, 0, ""},
        {UnUse, 0, "WF", kWriting}}},
      {"saved",
       {{Use, 0, "R"},
        {Save, -1, ""},
        {AutoSave, 0, "W"},
        {Dirty, 0, ""},
        {Save, 0, "W", kWriting},
        {Save, -1, ""},
        {UnUse, 0, "F"}}},
      {"saved with a failure",
       {{Use, 0, "R"},
        {Dirty, 0, ""},
        {FailWrite, -1, ""},
        {AutoSave, -1, "W"},
        {Save, -1, "W", kWriting},
        {Save, -1, ""}}},
      {"dirty before use", {{Dirty, 0, ""}, {Use, 0, "R"}, {UnUse, 0, "WF", kWriting}}},
  };
  for (const auto& life : kLives) {
    CaughtMessages messages;
    Notebook notebook;
    int number = 0;
    for (const Expected& e : life.steps) {
      ++number;
      EXPECT_EQ(e.step(notebook), e.result) << life.what << ", step " << number;
      EXPECT_EQ(notebook.TakeCalls(), e.calls) << life.what << ", step " << number;
      if (e.message) {
        EXPECT_THAT(messages.Take(), ElementsAre(e.message)) << life.what << ", step " << number;
      } else {
        EXPECT_THAT(messages.Take(), IsEmpty()) << life.what << ", step " << number;
      }
    }
  }
}

TEST(DataCollectionInterface, DirtyFlag) {
  CaughtMessages messages;
  Notebook notebook;
  EXPECT_FALSE(notebook.IsModified());
  notebook.UseCollector();
  notebook.FlagDirty();
  EXPECT_TRUE(notebook.IsModified());
  notebook.AutoSave();
  EXPECT_TRUE(notebook.IsModified()) << "AutoSave leaves it";
  notebook.writeResult = -1;
  notebook.SaveCollector();
  EXPECT_FALSE(notebook.IsModified()) << "cleared before the write, failed or not";
}

TEST(DataCollectionInterface, DestructionWritesNothing) {
  CaughtMessages messages;
  {
    Notebook notebook;
    notebook.UseCollector();
    notebook.FlagDirty();
  }
  EXPECT_THAT(messages.Take(), IsEmpty());
}

TEST(DataCollectionInterface, ThreadsShareOneReading) {
  CaughtMessages messages;
  constexpr int kThreads = 4;
  constexpr int kItems = 100;
  Notebook notebook;
  notebook.UseCollector();
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&notebook] {
      for (int i = 0; i < kItems; ++i) {
        EXPECT_EQ(notebook.UseCollector(), 0);
        {
          const ScopedDataCollectionLock lock(notebook);
          notebook.LockData();  // nests
          notebook.InsertItem(new FileInfo("name", "value"), -1);
          notebook.FlagDirty();
          notebook.UnLockData();
        }
        EXPECT_EQ(notebook.UnUseCollector(), 0);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(notebook.GetNumberOfItems(), kThreads * kItems);
  EXPECT_EQ(notebook.UnUseCollector(), 0);
  EXPECT_EQ(notebook.calls, "RWF");
}

TEST(DataCollectionInterface, ThreadsUseAndLetGoInTurn) {
  CaughtMessages messages;
  Notebook notebook;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&notebook] {
      for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(notebook.UseCollector(), 0);
        EXPECT_EQ(notebook.UnUseCollector(), 0);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  // Each reading is freed before the next one.
  for (std::size_t i = 0; i < notebook.calls.size(); ++i) {
    ASSERT_EQ(notebook.calls[i], i % 2 == 0 ? 'R' : 'F');
  }
  EXPECT_EQ(notebook.calls.size() % 2, 0U);
}

}  // namespace
