#pragma once

#include <cstddef>
#include <iterator>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItemInterface.h"
#include "korvelfile/data/ItemIterator.h"
#include "korvelfile/outside/base/GeoMutex.h"

/// A list that owns the items in it, of any classes side by side.
///
/// The operations in mixed case take the list's recursive mutex. Those in lower case, and `Swap`,
/// copying and `ClearListObject`, take none: where threads share the list, the caller holds it
/// through `Lock`, `Korvel::scoped_lock` or a `TypedItemCursor`. Of several lists the parent's is
/// taken first.
class KORVELFILE_EXPORT DataItemListObject {
 public:
  using iterator = ItemIterator;
  using const_iterator = ItemConstIterator;
  using reverse_iterator = std::reverse_iterator<iterator>;
  using const_reverse_iterator = std::reverse_iterator<const_iterator>;

  DataItemListObject() = default;
  /// A deep copy, with a mutex of its own. `other` isn't locked.
  DataItemListObject(const DataItemListObject& other);
  /// Takes over the deep copy `other`; the old items are deleted.
  DataItemListObject& operator=(DataItemListObject other);
  virtual ~DataItemListObject();

  /// Puts `item` before `position`, or at the end if that is negative. The list owns it from here.
  /// @param position not above the number of items; not checked
  /// @return `item`
  DataItemInterface* InsertItem(DataItemInterface* item, int position);

  /// An item that is to go before what stands at `position` now.
  struct NewItem {
    std::size_t position;  ///< up to the number of items, which appends
    DataItemInterface* item;
  };

  /// Puts all of them in at once, in linear time. The list owns them from here.
  /// @param items in ascending order of position; not checked
  void InsertItems(const std::vector<NewItem>& items);

  /// Takes `item` out without deleting it; the caller owns it from here.
  /// @return 0, or -1 if it isn't in the list
  int RemoveItem(DataItemInterface* item);

  /// Takes `item` out and deletes it; 0, or -1 if it isn't in the list.
  int DeleteItem(DataItemInterface* item);

  /// Deletes the item at `index`; 0, or -1 if there is none.
  int DeleteItemByIndex(std::size_t index);

  /// @param index below the number of items; not checked
  DataItemInterface* GetItem(std::size_t index) const;

  int GetNumberOfItems() const;

  /// Deletes all items, in order. Linear, as `clear` is not.
  void ClearListObject();

  /// Exchanges the items; the mutexes stay where they are.
  void Swap(DataItemListObject& other);

  /// Deletes and removes the first item until the list is empty.
  void clear();

  std::size_t size() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  iterator begin() { return iterator(items_.data()); }
  iterator end() { return iterator(items_.data() + items_.size()); }
  const_iterator begin() const { return const_iterator(items_.data()); }
  const_iterator end() const { return const_iterator(items_.data() + items_.size()); }
  reverse_iterator rbegin() { return reverse_iterator(end()); }
  reverse_iterator rend() { return reverse_iterator(begin()); }
  const_reverse_iterator rbegin() const { return const_reverse_iterator(end()); }
  const_reverse_iterator rend() const { return const_reverse_iterator(begin()); }

  /// @param index below the size; not checked
  DataItemInterface& operator[](std::size_t index) { return *items_[index]; }
  const DataItemInterface& operator[](std::size_t index) const { return *items_[index]; }

  /// @throws std::out_of_range "invalid vector<T> subscript" at or past the end
  DataItemInterface& at(std::size_t index);
  const DataItemInterface& at(std::size_t index) const;

  DataItemInterface& front() { return *items_.front(); }
  const DataItemInterface& front() const { return *items_.front(); }
  DataItemInterface& back() { return *items_.back(); }
  const DataItemInterface& back() const { return *items_.back(); }

  /// These store copies; the caller keeps what it passes in.
  void push_back(const DataItemInterface& item);
  void push_front(const DataItemInterface& item);
  iterator insert(iterator position, const DataItemInterface& item);
  void insert(iterator position, std::size_t count, const DataItemInterface& item);

  /// Deletes and removes; gives an iterator to what follows.
  iterator erase(iterator position);
  iterator erase(iterator first, iterator last);
  void pop_back();
  void pop_front();

  /// Appends copies of `item` up to a size of `count`; never shortens the list.
  void resize(std::size_t count, const DataItemInterface& item);

 private:
  friend KORVELFILE_EXPORT void Lock(const DataItemListObject& list);
  friend KORVELFILE_EXPORT void Unlock(const DataItemListObject& list);

  void LockList() const { mutex_.Lock(); }
  void UnLockList() const { mutex_.Unlock(); }
  void CheckIndex(std::size_t index) const;

  std::vector<DataItemInterface*> items_;
  mutable GeoMutex mutex_;
};

/// Takes the list's mutex, once more if this thread holds it already.
KORVELFILE_EXPORT void Lock(const DataItemListObject& list);

/// Gives back one `Lock`.
KORVELFILE_EXPORT void Unlock(const DataItemListObject& list);
