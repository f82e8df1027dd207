#include <map>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/data/SharedText.h"
#include "tests/support/Random.h"

namespace {

// In a table of linear probing every removal must close its gap.
void FindEveryTextAfterAnyRemovals(std::uint64_t seed) {
  PrintedRandom random(seed);
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

TEST(SharedText, ThreadsFindEveryTextAfterAnyRemovals) {
  FindEveryTextAfterAnyRemovals(4711);
  std::vector<std::thread> threads;
  for (std::uint64_t t = 0; t < 4; ++t) threads.emplace_back(FindEveryTextAfterAnyRemovals, t);
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
