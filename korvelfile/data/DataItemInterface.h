#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/SharedText.h"

class DataItemListObject;
template <class T>
class DataItem;

/// Everything that a file holds in memory: an object with a name, a time stamp and, as a rule, a
/// list of further items.
///
/// Classes derive through `DataItem<T>`. Items have no lock for their own fields.
class KORVELFILE_EXPORT DataItemInterface {
 public:
  virtual ~DataItemInterface();

  /// A copy of the whole item on the heap, owned by the caller.
  virtual DataItemInterface* CreateCopy() const = 0;

  /// The item's own child list, or null for an item without one.
  virtual DataItemListObject* GetItemListObject() = 0;

  std::string GetName() const { return name_.Get(); }

  /// The name without a copy; valid until the item gets another one.
  const std::string& NameText() const { return name_.Get(); }

  void SetName(const std::string& name) { name_ = name; }

  /// 0 at first; travels with copies. For applications: the library never changes it.
  int GetTimeStamp() const { return timeStamp_; }

 private:
  template <class T>
  friend class DataItem;

  DataItemInterface() = default;
  explicit DataItemInterface(const std::string& name) : name_(name) {}
  DataItemInterface(const DataItemInterface&) = default;
  DataItemInterface& operator=(const DataItemInterface&) = default;

  SharedText name_;
  int timeStamp_ = 0;
};
