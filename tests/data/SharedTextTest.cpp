#include <map>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/data/SharedText.h"
#include "tests/support/Random.h"

namespace {

TEST(SharedText, EqualTextsShareOneString) {
  const SharedText a("P 1");
  const SharedText b("P 1");
  const SharedText other("P 2");
  SharedText empty;
  EXPECT_EQ(&a.Get(), &b.Get());
  EXPECT_NE(&a.Get(), &other.Get());
  EXPECT_EQ(empty.Get(), "");
  EXPECT_EQ(&empty.Get(), &SharedText("").Get());
  EXPECT_EQ(sizeof(SharedText), sizeof(void*));
  SharedText copy(a);
  copy = other;
  EXPECT_EQ(copy.Get(), "P 2");
  copy = copy.Get();
  EXPECT_EQ(copy.Get(), "P 2") << "assigned from its own text";
  copy = std::string("a\0b", 3);
  EXPECT_EQ(copy.Get().size(), 3U);
}

TEST(SharedText, ThreadsMakeAndDropTheSameTexts) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([] {
      for (int round = 0; round < 20; ++round) {
        std::vector<SharedText> texts;
        for (int i = 0; i < 100; ++i) texts.emplace_back("shared " + std::to_string(i % 50));
        for (int i = 0; i < 100; ++i) {
          ASSERT_EQ(texts[static_cast<std::size_t>(i)].Get(), "shared " + std::to_string(i % 50));
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// In a table of linear probing every removal must close its gap.
TEST(SharedText, EveryTextIsFoundAfterAnyRemovals) {
  PrintedRandom random(4711);
  std::map<std::string, SharedText> model;
  for (int i = 0; i < 50000; ++i) {
    // The table grows with many texts, then a few come and go among its rest.
    const std::string text = "model " + std::to_string(random.Below(i < 25000 ? 6000 : 200));
    const auto known = model.find(text);
    if (known == model.end()) {
      model.emplace(text, text);
    } else {
      ASSERT_EQ(&SharedText(text).Get(), &known->second.Get()) << text;
      if (random.Below(2) == 0) model.erase(known);
    }
  }
  for (const auto& [text, shared] : model) {
    ASSERT_EQ(shared.Get(), text);
    ASSERT_EQ(&SharedText(text).Get(), &shared.Get()) << text;
  }
}

}  // namespace
