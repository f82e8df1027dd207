#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace deprecated {

/// A growing array that is indexed by `int`. New code takes a `std::vector`.
template <class T>
class ArrayTemplate {
 public:
  int GetCount() const { return static_cast<int>(values_.size()); }  ///< How many values.

  /// @name Value number `index`, from 0 and below the count
  /// @{
  T& operator[](int index) { return values_[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return values_[static_cast<std::size_t>(index)]; }
  /// @}

  /// Adds a value at the end.
  void Append(T value) { values_.push_back(std::move(value)); }

  /// Puts a value before number `index`, from 0 to the count.
  void Insert(int index, T value) { values_.insert(values_.begin() + index, std::move(value)); }

  /// Takes out value number `index`, from 0 and below the count.
  void Remove(int index) { values_.erase(values_.begin() + index); }

  void Clear() { values_.clear(); }  ///< Takes out all values.

 private:
  std::vector<T> values_;
};

}  // namespace deprecated
