#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/data/DataCollectionInterface.h"
#include "korvelfile/data/FileInfo.h"
#include "tests/support/Surroundings.h"

namespace {

// Notes the file operations as letters: Read, Write, Create, No disk, Free.
class Notebook : public DataCollectionInterface {
 public:
  std::string calls;
  int readResult = 0;
  int writeResult = 0;

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

const std::map<char, int (*)(Notebook&)> kSteps = {
    {'+', [](Notebook& n) { return n.UseCollector(); }},
    {'-', [](Notebook& n) { return n.UnUseCollector(); }},
    {'c', [](Notebook& n) { return n.InitCollector(); }},
    {'n', [](Notebook& n) { return n.InitAndUseCollectorWithoutFuckingDisk(); }},
    {'s', [](Notebook& n) { return n.SaveCollector(); }},
    {'a', [](Notebook& n) { return n.AutoSave(); }},
    {'d', [](Notebook& n) { return n.FlagDirty(), 0; }},
    {'m', [](Notebook& n) { return static_cast<int>(n.IsModified()); }},
    {'r', [](Notebook& n) { return n.readResult = n.readResult == 0 ? -9 : 0; }},  // fails or heals
    {'w', [](Notebook& n) { return n.writeResult = -1; }},
};

// The result of each step, the file operations it calls, and a mark for its message.
std::string Lived(const std::string& steps) {
  const std::map<std::string, std::string> marks = {
      {"writing changes to file", "*"},
      {"Can't Init collector because someone is using the collector!", "!"}};
  CaughtMessages messages;
  Notebook notebook;
  std::string log;
  for (const char step : steps) {
    log += (log.empty() ? "" : " ") + std::to_string(kSteps.at(step)(notebook));
    log += std::exchange(notebook.calls, {});
    for (const std::string& text : messages.Take()) log += marks.at(text);
  }
  return log;
}

TEST(DataCollectionInterface, Life) {
  const struct {
    const char *what, *steps, *log;
  } kLives[] = {
      {"one user", "+--", "0R 0F 1"},
      {"two users", "++d--+-", "0R 0 0 0 0WF* 0R 0F"},
      {"failed read", "r+-+r+-", "-9 -9R 1 -9R 0 0R 0F"},
      {"failed write", "+dw-", "0R 0 -1 0WF*"},
      {"created", "cc-+", "0C 0C 1 0R"},
      {"created while in use", "+cn-", "0R 1! 1! 0F"},
      {"in memory", "nn+-d-", "0N 1! 0 0 0 0WF*"},
      {"saved", "+sadmamsms-", "0R -1 0W 0 1 0W 1 0W* 0 -1 0F"},
      {"saved with a failure", "+dwasms", "0R 0 -1 -1W -1W* 0 -1"},
      {"dirty before use", "d+-", "0 0R 0WF*"},
  };
  for (const auto& life : kLives) EXPECT_EQ(Lived(life.steps), life.log) << life.what;
}

TEST(DataCollectionInterface, ThreadsShareReadingsAndItems) {
  CaughtMessages messages;
  Notebook notebook;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&notebook] {
      for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(notebook.UseCollector(), 0);
        notebook.LockData();
        notebook.InsertItem(new FileInfo("name", "value"), -1);
        { const ScopedDataCollectionLock nested(notebook); }
        notebook.FlagDirty();
        notebook.UnLockData();
        EXPECT_EQ(notebook.UnUseCollector(), 0);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(notebook.GetNumberOfItems(), 4 * 100);
  std::string inTurn;
  while (inTurn.size() < notebook.calls.size()) inTurn += "RWF";
  EXPECT_EQ(notebook.calls, inTurn) << "each reading is written and freed before the next one";
}

}  // namespace
