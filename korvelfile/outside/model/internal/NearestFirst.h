#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <vector>

namespace Model {

/// Nodes of a tree that wait to be searched; the nearest one leaves first.
///
/// The latest few lie in no order: most searches put one after the other in and take out one or
/// two, for which a heap would be slow. It takes over when there are many.
class NearestFirst {
 public:
  /// A node and the square of its distance.
  struct Candidate {
    double square;
    std::size_t node;

    /// For heaps with the nearest on top.
    bool operator<(const Candidate& other) const { return square > other.square; }
  };

  bool IsEmpty() const { return count_ == 0 && heap_.empty(); }

  /// Square of the distance of the nearest one; infinite if nothing waits.
  double GetNearest() const { return nearest_; }

  void Push(const Candidate& candidate) {
    if (count_ == latest_.size()) MoveToHeap();
    latest_[count_++] = candidate;
    nearest_ = std::min(nearest_, candidate.square);
  }

  /// Takes out the nearest; there must be one.
  Candidate Take() {
    Candidate* const best = std::max_element(latest_.data(), latest_.data() + count_);
    Candidate nearest;
    if (count_ == 0 || (!heap_.empty() && *best < heap_.front())) {
      nearest = heap_.front();
      std::pop_heap(heap_.begin(), heap_.end());
      heap_.pop_back();
    } else {
      nearest = *best;
      *best = latest_[--count_];
    }
    FindNearest();
    return nearest;
  }

 private:
  void MoveToHeap() {
    for (; count_ > 0; --count_) {
      heap_.push_back(latest_[count_ - 1]);
      std::push_heap(heap_.begin(), heap_.end());
    }
  }

  void FindNearest() {
    nearest_ = heap_.empty() ? std::numeric_limits<double>::infinity() : heap_.front().square;
    for (std::size_t i = 0; i < count_; ++i) nearest_ = std::min(nearest_, latest_[i].square);
  }

  std::array<Candidate, 32> latest_;
  std::size_t count_ = 0;  // of the latest
  std::vector<Candidate> heap_;
  double nearest_ = std::numeric_limits<double>::infinity();
};

}  // namespace Model
