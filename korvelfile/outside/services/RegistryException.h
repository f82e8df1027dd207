#pragma once

#include <stdexcept>

#include "korvelfile/Export.h"

namespace Registry {

/// Thrown by a service that keeps what it knows in a store of settings, if it can't reach that.
class KORVELFILE_EXPORT Exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~Exception() override;
};

}  // namespace Registry
