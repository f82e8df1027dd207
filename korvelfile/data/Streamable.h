#pragma once

#include "korvelfile/Export.h"

class DataStream;

/// An object that passes its fields through a `DataStream`.
class KORVELFILE_EXPORT Streamable {
 public:
  virtual ~Streamable();

  /// The object's own format version, major number in the high 16 bits and minor in the low ones.
  virtual int GetVersion() const = 0;

  /// Reads or writes all fields, in order.
  /// @param version of the file being read or written
  virtual void Stream(DataStream& stream, int version) = 0;
};
