#pragma once

#include <stdexcept>

#include "korvelfile/Export.h"

namespace Model {

/// Thrown by a line model that can't answer, such as for a point without a foot on the line.
class KORVELFILE_EXPORT LineException : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~LineException() override;
};

}  // namespace Model
