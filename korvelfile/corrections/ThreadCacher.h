#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/GeoMutex.h"

/// Table from thread number to one value of that thread, such as what it found last.
///
/// A thread that looks for its own value waits for nobody. The value itself is for its thread alone
/// and needs no lock either. The table doesn't grow: beyond twice as many threads as there are
/// buckets it says so in a system message and gets slower. Numbers of threads that have ended stay,
/// until `Clear`.
class KORVELFILE_EXPORT ThreadCacher {
 public:
  /// @param bucketCount a power of two
  explicit ThreadCacher(std::size_t bucketCount);
  ~ThreadCacher();  ///< Frees all values.
  ThreadCacher(const ThreadCacher&) = delete;
  ThreadCacher& operator=(const ThreadCacher&) = delete;

  /// The value of the thread `thread`, or null. Safe from any thread, but not beside `Clear`.
  int* Find(std::uint32_t thread) const;

  /// Enters the value of the thread `thread`, which must have none yet, and owns it from now on.
  ///
  /// Safe from any thread, but not beside `Clear`. Beyond twice the bucket count each insertion
  /// sends the system message "ThreadCacher is getting overfilled!!!"; no lock is held then.
  /// @return the value
  int* Insert(std::uint32_t thread, std::unique_ptr<int> value);

  /// Frees all values. No other thread may use the table meanwhile.
  void Clear();

 private:
  struct Entry;

  std::atomic<Entry*>& Bucket(std::uint32_t thread);
  const std::atomic<Entry*>& Bucket(std::uint32_t thread) const;

  GeoMutex mutex_;  // for appending
  std::vector<std::atomic<Entry*>> buckets_;
  std::atomic<std::size_t> entryCount_{0};
};
