#pragma once

#include <mutex>

/// Lets one thread at a time into Newmat.
///
/// Every operation of Newmat writes to a list of its own calls that the whole process shares, and a
/// failing one walks that list: two threads at once would read each other's stack. Who works with
/// matrices holds one of these for as long as they live. It can't keep out an application that
/// calls Newmat itself.
class NewmatLock {
 private:
  static std::mutex& Mutex() {
    static std::mutex mutex;
    return mutex;
  }

  std::scoped_lock<std::mutex> lock_{Mutex()};
};
