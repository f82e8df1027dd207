#pragma once

#include <cstddef>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CodesAndRemark.h"

namespace detail {

/// An immutable code triple of which equal ones share one stored value, process-wide.
///
/// It costs one pointer. Different objects may be used from any threads; one object by one thread
/// at a time.
class KORVELFILE_EXPORT SharedCodes {
 public:
  /// Three empty texts.
  SharedCodes();
  explicit SharedCodes(const CodesAndRemark& codes);
  SharedCodes(const SharedCodes& other);
  SharedCodes& operator=(const SharedCodes& other);
  SharedCodes& operator=(const CodesAndRemark& codes);
  ~SharedCodes();

  void Swap(SharedCodes& other);

  /// Valid for as long as an object with this triple lives.
  const CodesAndRemark& Get() const;

 private:
  alignas(void*) std::byte storage_[sizeof(void*)];  ///< the flyweight
};

}  // namespace detail
