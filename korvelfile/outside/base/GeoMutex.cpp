#include "korvelfile/outside/base/GeoMutex.h"

#include "korvelfile/outside/base/Thread.h"

namespace {

constexpr std::uint32_t kFree = 0;
constexpr std::uint32_t kWaiting = 0x80000000U;

}  // namespace

bool GeoMutex::IsHeldByMe(std::uint32_t me) const {
  return (holder_.load(std::memory_order_relaxed) & ~kWaiting) == me;
}

bool GeoMutex::TryLock() {
  const std::uint32_t me = _Thread::GetThreadID();
  if (!IsHeldByMe(me)) {
    std::uint32_t expected = kFree;
    if (!holder_.compare_exchange_strong(expected, me, std::memory_order_acquire,
                                         std::memory_order_relaxed)) {
      return false;
    }
  }
  ++depth_;
  return true;
}

void GeoMutex::Lock() {
  if (TryLock()) return;
  LockContended(_Thread::GetThreadID());
  ++depth_;
}

// Once a thread has waited it takes the mutex with the bit set, as it can't know whether others
// still wait; the worst is one wake-up too many.
void GeoMutex::LockContended(std::uint32_t me) {
  std::uint32_t seen = holder_.load(std::memory_order_relaxed);
  for (;;) {
    if (seen == kFree) {
      if (holder_.compare_exchange_weak(seen, me | kWaiting, std::memory_order_acquire,
                                        std::memory_order_relaxed)) {
        return;
      }
    } else if ((seen & kWaiting) != 0 ||
               holder_.compare_exchange_weak(seen, seen | kWaiting, std::memory_order_relaxed)) {
      holder_.wait(seen | kWaiting, std::memory_order_relaxed);
      seen = holder_.load(std::memory_order_relaxed);
    }
  }
}

void GeoMutex::Unlock() {
  if (--depth_ > 0) return;
  const std::uint32_t before = holder_.exchange(kFree, std::memory_order_release);
  if ((before & kWaiting) != 0) holder_.notify_one();
}
