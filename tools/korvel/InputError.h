#pragma once

#include <stdexcept>
#include <string>

namespace korvel {

/// What the program tells its caller.
enum ExitStatus : int {
  kDone = 0,
  kComputationFailed = 1,  ///< the input was read, but at least one result can't be computed
  kBadInput = 2,           ///< wrong use, or a file that can't be read or written
};

/// Wrong use, or a file that can't be read or written: ends the verb with `kBadInput`.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes to standard error, each line of `text` behind "korvel: ".
void PrintError(const std::string& text);

}  // namespace korvel
