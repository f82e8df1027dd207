#pragma once

#include <concepts>
#include <limits>
#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Undefined.h"

/// One row of fields, read or written by the same list of `Stream` calls.
///
/// An object passes its fields through in order; the stream knows how each kind looks. While
/// reading, a field that is blank or missing takes the value `absent`.
///
/// A stream serves one thread at a time.
class KORVELBASE_EXPORT DataStream {
 public:
  virtual ~DataStream();

  /// True if fields are being written.
  virtual bool IsStoring() const = 0;

  /// A text field.
  virtual void Stream(std::string& value, std::string_view absent = {}) = 0;

  /// A number field.
  virtual void Stream(double& value, double absent = kUndefined) = 0;

  /// A whole number. While reading, a number beyond the range of `Integer` takes the nearer end of
  /// that range.
  template <std::integral Integer>
  void Stream(Integer& value, Integer absent = 0) {
    using Limits = std::numeric_limits<Integer>;
    value = static_cast<Integer>(StreamInteger(value, absent, static_cast<long long>(Limits::min()),
                                               static_cast<long long>(Limits::max())));
  }

 protected:
  DataStream() = default;
  DataStream(const DataStream&) = default;
  DataStream& operator=(const DataStream&) = default;

 private:
  /// Writes `value` and gives it back, or reads a number between `lowest` and `highest`.
  virtual long long StreamInteger(long long value, long long absent, long long lowest,
                                  long long highest) = 0;
};
