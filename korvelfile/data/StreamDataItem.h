#pragma once

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/ClassToString.h"

class DataItemListObject;

namespace Data {

/// No entry of the class-to-name table knows an item; the text is its run-time type name.
class KORVELFILE_EXPORT UnregisteredClass : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes any item with everything under it as object text.
class KORVELFILE_EXPORT StreamDataItem {
 public:
  /// @param out written to; must outlive the object
  /// @param version handed to each `Stream`
  /// @param prefix stands at the start of each line
  StreamDataItem(std::ostream& out, int version, const ClassToString& names,
                 const std::string& prefix);

  /// @throws UnregisteredClass for an item that the table doesn't know
  /// @throws std::bad_cast for an item that isn't `Streamable`
  /// @throws std::runtime_error for a child without a list object, or at a depth above 1000
  void WriteItem(DataItemListObject& item);

 private:
  class Implementation;
  std::shared_ptr<Implementation> implementation_;
};

}  // namespace Data
