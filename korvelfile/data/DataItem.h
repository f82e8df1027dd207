#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItemInterface.h"
#include "korvelfile/data/DataItemListObject.h"

/// Makes the class `T` an item. `T` derives from `DataItem<T>`, then `DataItemListObject`, then
/// whatever else it is.
template <class T>
class KORVELFILE_EXPORT DataItem : public DataItemInterface {
 public:
  DataItemInterface* CreateCopy() const override { return new T(static_cast<const T&>(*this)); }
  DataItemListObject* GetItemListObject() override { return static_cast<T*>(this); }

 protected:
  DataItem() = default;
  explicit DataItem(const std::string& name) : DataItemInterface(name) {}
  DataItem(const DataItem&) = default;
  DataItem& operator=(const DataItem&) = default;
  ~DataItem() override = default;
};
