#include "korvelfile/data/DataItemListObject.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

DataItemListObject::DataItemListObject(const DataItemListObject& other) {
  items_.reserve(other.items_.size());
  for (const DataItemInterface& item : other) push_back(item);
}

DataItemListObject& DataItemListObject::operator=(DataItemListObject other) {
  Swap(other);
  return *this;
}

DataItemListObject::~DataItemListObject() { ClearListObject(); }

void Lock(const DataItemListObject& list) { list.LockList(); }

void Unlock(const DataItemListObject& list) { list.UnLockList(); }

DataItemInterface* DataItemListObject::InsertItem(DataItemInterface* item, int position) {
  std::unique_ptr<DataItemInterface> owned(item);
  const GeoMutex::ScopedLock lock(mutex_);
  if (position < 0) {
    items_.push_back(item);
  } else {
    items_.insert(items_.begin() + position, item);
  }
  return owned.release();
}

void DataItemListObject::InsertItems(const std::vector<NewItem>& items) {
  const GeoMutex::ScopedLock lock(mutex_);
  std::vector<DataItemInterface*> all;
  all.reserve(items_.size() + items.size());
  auto next = items_.begin();
  for (const NewItem& added : items) {
    const auto before = items_.begin() + static_cast<std::ptrdiff_t>(added.position);
    all.insert(all.end(), next, before);
    all.push_back(added.item);
    next = before;
  }
  all.insert(all.end(), next, items_.end());
  items_.swap(all);
}

int DataItemListObject::RemoveItem(DataItemInterface* item) {
  const GeoMutex::ScopedLock lock(mutex_);
  const auto found = std::find(items_.begin(), items_.end(), item);
  if (found == items_.end()) return -1;
  items_.erase(found);
  return 0;
}

int DataItemListObject::DeleteItem(DataItemInterface* item) {
  const GeoMutex::ScopedLock lock(mutex_);
  const int result = RemoveItem(item);
  if (result == 0) delete item;
  return result;
}

int DataItemListObject::DeleteItemByIndex(std::size_t index) {
  const GeoMutex::ScopedLock lock(mutex_);
  if (index >= items_.size()) return -1;
  erase(begin() + static_cast<std::ptrdiff_t>(index));
  return 0;
}

DataItemInterface* DataItemListObject::GetItem(std::size_t index) const {
  const GeoMutex::ScopedLock lock(mutex_);
  return items_[index];
}

int DataItemListObject::GetNumberOfItems() const {
  const GeoMutex::ScopedLock lock(mutex_);
  return static_cast<int>(items_.size());
}

void DataItemListObject::ClearListObject() {
  for (DataItemInterface* item : items_) delete item;
  items_.clear();
}

void DataItemListObject::Swap(DataItemListObject& other) { items_.swap(other.items_); }

void DataItemListObject::clear() {
  while (!items_.empty()) pop_front();
}

void DataItemListObject::CheckIndex(std::size_t index) const {
  if (index >= items_.size()) throw std::out_of_range("invalid vector<T> subscript");
}

DataItemInterface& DataItemListObject::at(std::size_t index) {
  CheckIndex(index);
  return *items_[index];
}

const DataItemInterface& DataItemListObject::at(std::size_t index) const {
  CheckIndex(index);
  return *items_[index];
}

void DataItemListObject::push_back(const DataItemInterface& item) { insert(end(), item); }

void DataItemListObject::push_front(const DataItemInterface& item) { insert(begin(), item); }

DataItemListObject::iterator DataItemListObject::insert(iterator position,
                                                        const DataItemInterface& item) {
  const auto offset = position - begin();
  std::unique_ptr<DataItemInterface> copy(item.CreateCopy());
  items_.insert(items_.begin() + offset, copy.get());
  copy.release();
  return begin() + offset;
}

void DataItemListObject::insert(iterator position, std::size_t count,
                                const DataItemInterface& item) {
  for (; count > 0; --count) position = insert(position, item);
}

DataItemListObject::iterator DataItemListObject::erase(iterator position) {
  return erase(position, position + 1);
}

DataItemListObject::iterator DataItemListObject::erase(iterator first, iterator last) {
  const auto from = items_.begin() + (first - begin());
  const auto to = items_.begin() + (last - begin());
  std::for_each(from, to, [](DataItemInterface* item) { delete item; });
  const auto next = items_.erase(from, to);
  return begin() + (next - items_.begin());
}

void DataItemListObject::pop_back() {
  delete items_.back();
  items_.pop_back();
}

void DataItemListObject::pop_front() { erase(begin()); }

void DataItemListObject::resize(std::size_t count, const DataItemInterface& item) {
  while (items_.size() < count) push_back(item);
}
