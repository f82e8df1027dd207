#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/GeoMutex.h"
#include "korvelfile/outside/base/Thread.h"

namespace {

using std::chrono::milliseconds;

constexpr int kThreads = 6;
constexpr int kRounds = 3000;

static_assert(sizeof(GeoMutex) == 8, "every item of a file carries one");

void RunInThreads(int count, const std::function<void(int)>& work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

bool AnotherThreadGets(GeoMutex& mutex) {
  bool got = false;
  RunInThreads(1, [&](int) {
    got = mutex.TryLock();
    if (got) mutex.Unlock();
  });
  return got;
}

TEST(GeoMutex, ThreadsGetItWhenEveryLockIsGivenBack) {
  GeoMutex mutex;
  constexpr int kDepth = 100;
  for (int i = 0; i < kDepth; ++i) {
    i % 2 == 0 ? mutex.Lock() : _Thread::LockMutex(mutex);
    EXPECT_TRUE(mutex.TryLock());
  }
  for (int i = 0; i < 2 * kDepth; ++i) {
    EXPECT_FALSE(AnotherThreadGets(mutex)) << i;
    i % 2 == 0 ? mutex.Unlock() : _Thread::UnLockMutex(mutex);
  }
  EXPECT_TRUE(AnotherThreadGets(mutex));
}

TEST(GeoMutex, ThreadsExcludeEachOther) {
  GeoMutex mutex;
  int count = 0;  // no atomic: the thread sanitizer watches too
  RunInThreads(kThreads, [&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      const GeoMutex::ScopedLock lock(mutex);
      const GeoMutex::ScopedLock again(mutex);
      ++count;
      if (i % 512 == thread) std::this_thread::yield();
    }
  });
  EXPECT_EQ(count, kThreads * kRounds);
}

// Every hand-over has to wake somebody, or the test never ends.
TEST(GeoMutex, ThreadsThatWaitAreWoken) {
  GeoMutex mutex;
  std::atomic<int> done{0};
  for (int round = 0; round < 50; ++round) {
    mutex.Lock();
    std::thread unlocker([&] {
      RunInThreads(kThreads, [&](int) {
        const GeoMutex::ScopedLock lock(mutex);
        std::this_thread::sleep_for(std::chrono::microseconds(50));
        ++done;
      });
    });
    std::this_thread::sleep_for(milliseconds(round % 3));
    mutex.Unlock();
    unlocker.join();
  }
  EXPECT_EQ(done, 50 * kThreads);
}

TEST(Thread, ThreadsHaveNumbersOfTheirOwn) {
  std::vector<std::uint32_t> numbers(kThreads);
  RunInThreads(kThreads, [&](int i) {
    numbers[static_cast<std::size_t>(i)] = _Thread::GetThreadID();
    EXPECT_EQ(_Thread::GetThreadID(), numbers[static_cast<std::size_t>(i)]);
  });
  numbers.push_back(_Thread::GetThreadID());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_GT(numbers[i], 0U);
    EXPECT_LT(numbers[i], 0x80000000U);
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(numbers[i], numbers[j]);
  }
}

}  // namespace
