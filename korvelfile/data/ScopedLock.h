#pragma once

namespace Korvel {

/// Holds the mutex of `lockable` from construction to destruction, through the free functions
/// `Lock` and `Unlock`.
template <class Lockable>
class scoped_lock {
 public:
  explicit scoped_lock(const Lockable& lockable) : lockable_(lockable) { Lock(lockable_); }
  ~scoped_lock() { Unlock(lockable_); }
  scoped_lock(const scoped_lock&) = delete;
  scoped_lock& operator=(const scoped_lock&) = delete;

 private:
  const Lockable& lockable_;
};

}  // namespace Korvel
