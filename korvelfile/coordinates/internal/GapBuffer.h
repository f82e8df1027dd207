#pragma once

#include <cstddef>
#include <vector>

namespace internal {

/// A sequence in which insertions close to the last one take no time that grows with its size.
///
/// What follows the place of the last insertion stands in reverse order in a vector of its own.
template <class T>
class GapBuffer {
 public:
  std::size_t size() const { return before_.size() + after_.size(); }

  void push_back(const T& value) { Insert(size(), value); }

  /// @param index below the size; not checked
  T& operator[](std::size_t index) {
    return index < before_.size() ? before_[index] : after_[size() - 1 - index];
  }

  /// @param index up to the size; not checked
  void Insert(std::size_t index, const T& value) {
    for (; before_.size() > index; before_.pop_back()) after_.push_back(before_.back());
    for (; before_.size() < index; after_.pop_back()) before_.push_back(after_.back());
    before_.push_back(value);
  }

 private:
  std::vector<T> before_;
  std::vector<T> after_;
};

}  // namespace internal
