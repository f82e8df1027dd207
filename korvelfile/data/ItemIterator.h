#pragma once

#include <compare>
#include <cstddef>
#include <iterator>

#include "korvelfile/data/DataItemInterface.h"

/// Random-access iterator over the items of a list; gives the item, not the pointer to it.
class ItemConstIterator {
 public:
  using iterator_category = std::random_access_iterator_tag;
  using value_type = DataItemInterface;
  using difference_type = std::ptrdiff_t;
  using pointer = const DataItemInterface*;
  using reference = const DataItemInterface&;
  using Place = DataItemInterface* const*;  ///< of the pointer within the list

  ItemConstIterator() = default;
  explicit ItemConstIterator(Place place) : place_(place) {}

  reference operator*() const { return **place_; }
  pointer operator->() const { return *place_; }
  reference operator[](difference_type n) const { return *place_[n]; }

  ItemConstIterator& operator++() { return *this += 1; }
  ItemConstIterator& operator--() { return *this -= 1; }
  ItemConstIterator operator++(int) { return ItemConstIterator(place_++); }
  ItemConstIterator operator--(int) { return ItemConstIterator(place_--); }
  ItemConstIterator& operator+=(difference_type n) {
    place_ += n;
    return *this;
  }
  ItemConstIterator& operator-=(difference_type n) { return *this += -n; }
  ItemConstIterator operator+(difference_type n) const { return ItemConstIterator(place_ + n); }
  ItemConstIterator operator-(difference_type n) const { return ItemConstIterator(place_ - n); }
  friend ItemConstIterator operator+(difference_type n, const ItemConstIterator& i) {
    return i + n;
  }
  difference_type operator-(const ItemConstIterator& other) const { return place_ - other.place_; }

  friend bool operator==(const ItemConstIterator&, const ItemConstIterator&) = default;
  friend auto operator<=>(const ItemConstIterator&, const ItemConstIterator&) = default;

 protected:
  Place place_ = nullptr;
};

/// As `ItemConstIterator`, and lets the item be changed.
class ItemIterator : public ItemConstIterator {
 public:
  using pointer = DataItemInterface*;
  using reference = DataItemInterface&;
  using ItemConstIterator::ItemConstIterator;

  reference operator*() const { return **place_; }
  pointer operator->() const { return *place_; }
  reference operator[](difference_type n) const { return *place_[n]; }

  ItemIterator& operator++() { return *this += 1; }
  ItemIterator& operator--() { return *this -= 1; }
  ItemIterator operator++(int) { return ItemIterator(place_++); }
  ItemIterator operator--(int) { return ItemIterator(place_--); }
  ItemIterator& operator+=(difference_type n) {
    place_ += n;
    return *this;
  }
  ItemIterator& operator-=(difference_type n) { return *this += -n; }
  ItemIterator operator+(difference_type n) const { return ItemIterator(place_ + n); }
  ItemIterator operator-(difference_type n) const { return ItemIterator(place_ - n); }
  friend ItemIterator operator+(difference_type n, const ItemIterator& i) { return i + n; }
  using ItemConstIterator::operator-;
};
