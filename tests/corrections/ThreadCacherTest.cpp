#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/corrections/ThreadCacher.h"
#include "korvelfile/outside/base/Ghal.h"

TEST(ThreadCacher, TellsThatItGetsOverfilledAndGoesOn) {
  std::string messages;
  const auto sink = _GHAL::SetMessageSink([&](Korvel::LogLevel level, std::string_view text) {
    messages += std::to_string(level.value) + " " + std::string(text);
  });
  ThreadCacher cacher(256);
  for (int thread = 0; thread < 513; ++thread) {
    EXPECT_EQ(messages, "");
    *cacher.Insert(static_cast<std::uint32_t>(thread), std::make_unique<int>()) = thread;
  }
  _GHAL::SetMessageSink(sink);
  EXPECT_EQ(messages, "2 ThreadCacher is getting overfilled!!!");
  EXPECT_EQ(*cacher.Find(512), 512);
  EXPECT_EQ(cacher.Find(513), nullptr);
}
