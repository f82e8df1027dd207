#include "korvelfile/corrections/ThreadCacher.h"

#include <utility>

#include "korvelfile/outside/base/Ghal.h"

// An entry is complete when it is put at the end of its chain, and stays until all go. So a chain
// can be walked without a lock while another thread appends to it.
struct ThreadCacher::Entry {
  std::atomic<Entry*> next{nullptr};
  std::uint32_t thread;
  std::unique_ptr<int> value;

  Entry(std::uint32_t thread_, std::unique_ptr<int> value_)
      : thread(thread_), value(std::move(value_)) {}
};

ThreadCacher::ThreadCacher(std::size_t bucketCount) : buckets_(bucketCount) {}

ThreadCacher::~ThreadCacher() { Clear(); }

const std::atomic<ThreadCacher::Entry*>& ThreadCacher::Bucket(std::uint32_t thread) const {
  return buckets_[((thread >> 8U) ^ thread) & (buckets_.size() - 1)];
}

std::atomic<ThreadCacher::Entry*>& ThreadCacher::Bucket(std::uint32_t thread) {
  return const_cast<std::atomic<Entry*>&>(std::as_const(*this).Bucket(thread));
}

int* ThreadCacher::Find(std::uint32_t thread) const {
  const Entry* entry = Bucket(thread).load(std::memory_order_acquire);
  while (entry && entry->thread != thread) entry = entry->next.load(std::memory_order_acquire);
  return entry ? entry->value.get() : nullptr;
}

int* ThreadCacher::Insert(std::uint32_t thread, std::unique_ptr<int> value) {
  if (++entryCount_ > 2 * buckets_.size())
    _GHAL::SystemMessage("ThreadCacher is getting overfilled!!!");
  auto entry = std::make_unique<Entry>(thread, std::move(value));
  int* const inserted = entry->value.get();

  const GeoMutex::ScopedLock lock(mutex_);
  std::atomic<Entry*>* end = &Bucket(thread);
  while (Entry* const last = end->load(std::memory_order_relaxed)) end = &last->next;
  end->store(entry.release(), std::memory_order_release);
  return inserted;
}

void ThreadCacher::Clear() {
  const GeoMutex::ScopedLock lock(mutex_);
  for (std::atomic<Entry*>& bucket : buckets_) {
    Entry* entry = bucket.exchange(nullptr, std::memory_order_relaxed);
    while (entry) {
      const std::unique_ptr<Entry> freed(entry);
      entry = freed->next.load(std::memory_order_relaxed);
    }
  }
  entryCount_ = 0;
}
