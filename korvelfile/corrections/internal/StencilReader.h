#pragma once

#include <cstdint>
#include <string>

/// Where the values of a stencil lie in a grid file: equal pieces of some of its rows.
struct StencilPlace {
  std::int64_t offset;  ///< of the first piece, bytes from the start of the file
  std::int64_t stride;  ///< from one piece to the next, bytes
  int rows;             ///< pieces, > 0
  int size;             ///< of a piece, bytes, > 0
};

/// Reads stencils from grid files that nobody keeps open between two readings.
///
/// For one thread at a time. A copy is a reader of its own.
class StencilReader {
 public:
  /// Reads the pieces of `place`, one behind the other, into `bytes`.
  ///
  /// @return false if the file can't be opened or read, or ends before; `bytes` is undefined then
  bool Read(const std::string& path, const StencilPlace& place, unsigned char* bytes);
};
