#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/outside/base/Ghal.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;

constexpr int kThreads = 4;
constexpr int kRounds = 500;

class GhalTest : public testing::Test {
 protected:
  ~GhalTest() override { _GHAL::SetIdentity(before_); }

 private:
  Korvel::Identity before_{_GHAL::GetProductName(), _GHAL::GetProductVersion(),
                           _GHAL::GetProductSerial(), _GHAL::GetUsername(),
                           _GHAL::GetUserCompany()};
};

TEST_F(GhalTest, MessagesGoToTheSinkWithTheirLevel) {
  std::vector<std::string> texts;
  const auto former = _GHAL::SetMessageSink([&](Korvel::LogLevel level, std::string_view text) {
    texts.push_back(std::to_string(level.value) + " " + std::string(text));
  });
  GHAL::SystemMessage(Korvel::kDefaultLogLevel, "first");
  GHAL::SystemMessage(5, "second");
  _GHAL::SetMessageSink(former);
  EXPECT_THAT(texts, ElementsAre("2 first", "5 second"));
}

TEST_F(GhalTest, ASinkMaySendMessagesAndReplaceItself) {
  CaughtMessages outer;
  _GHAL::MessageSink former;
  former = _GHAL::SetMessageSink([&](Korvel::LogLevel level, std::string_view text) {
    _GHAL::SetMessageSink(former);
    _GHAL::SystemMessage(level, "passed on: " + std::string(text));
  });
  _GHAL::SystemMessage(2, "a");
  _GHAL::SystemMessage(2, "b");
  EXPECT_THAT(outer.Take(), ElementsAre("passed on: a", "b"));
}

TEST_F(GhalTest, WithoutASinkMessagesAreLinesOnStandardError) {
  const auto former = _GHAL::SetMessageSink(nullptr);
  testing::internal::CaptureStderr();
  _GHAL::SystemMessage(2, "can't open pxy-file!");
  _GHAL::SystemMessage(2, "/a/b.pxy");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "can't open pxy-file!\n/a/b.pxy\n");
  _GHAL::SetMessageSink(former);
}

void RunInThreads(const std::function<void(int)>& work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

TEST_F(GhalTest, ThreadsSendWhileOthersReplaceTheSink) {
  std::atomic<int> received{0};
  const auto count = [&](Korvel::LogLevel, std::string_view text) {
    if (text == "a message that is longer than a small string") ++received;
  };
  const auto former = _GHAL::SetMessageSink(count);
  RunInThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      _GHAL::SystemMessage(2, "a message that is longer than a small string");
      if (thread == 0) _GHAL::SetMessageSink(count);
    }
  });
  _GHAL::SetMessageSink(former);
  EXPECT_EQ(received, kThreads * kRounds);
}

TEST_F(GhalTest, ThreadsReadWhileOthersReplaceTheIdentity) {
  const std::wstring names[] = {L"a product with a name that is long", L"another, longer name"};
  _GHAL::SetIdentity({names[0], L"", L"", L"", L""});
  std::atomic<int> strange{0};
  RunInThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      if (thread == 0) _GHAL::SetIdentity({names[i % 2], L"", L"", L"", L""});
      const std::wstring name = _GHAL::GetProductName();
      if (name != names[0] && name != names[1]) ++strange;
    }
  });
  EXPECT_EQ(strange, 0);
}

}  // namespace
