#pragma once

#include <atomic>
#include <cstdint>

#include "korvelfile/outside/base/Export.h"

/// Recursive mutex of eight bytes that allocates nothing.
///
/// Every item of a file carries one, so its size counts a million times. A waiting thread sleeps in
/// the kernel. Copies don't exist: a copied object makes a mutex of its own.
class KORVELBASE_EXPORT GeoMutex {
 public:
  GeoMutex() = default;
  GeoMutex(const GeoMutex&) = delete;
  GeoMutex& operator=(const GeoMutex&) = delete;

  /// Takes the mutex, once more if this thread holds it already; waits for another holder.
  void Lock();

  /// Takes the mutex if that needs no waiting; true if it did.
  bool TryLock();

  /// Gives back one `Lock`. Only the holder may call it.
  void Unlock();

  /// Holds a mutex for the life of a scope.
  class ScopedLock {
   public:
    explicit ScopedLock(GeoMutex& mutex) : mutex_(mutex) { mutex_.Lock(); }
    ~ScopedLock() { mutex_.Unlock(); }
    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;

   private:
    GeoMutex& mutex_;
  };

 private:
  bool IsHeldByMe(std::uint32_t me) const;
  void LockContended(std::uint32_t me);

  /// Number of the holding thread, 0 if free; the top bit tells that somebody may be waiting.
  std::atomic<std::uint32_t> holder_{0};
  std::uint32_t depth_ = 0;  ///< locks held by the holder; only the holder touches it
};
