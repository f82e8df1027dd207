#include "korvelfile/outside/base/Thread.h"

#include <atomic>

#include "korvelfile/outside/base/GeoMutex.h"

namespace {

std::atomic<std::uint32_t> lastThread{0};

constinit thread_local std::uint32_t thisThread = 0;

}  // namespace

std::uint32_t _Thread::GetThreadID() {
  if (thisThread == 0) thisThread = lastThread.fetch_add(1, std::memory_order_relaxed) + 1;
  return thisThread;
}

void _Thread::LockMutex(GeoMutex& mutex) { mutex.Lock(); }

void _Thread::UnLockMutex(GeoMutex& mutex) { mutex.Unlock(); }
