#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/PositionedFile.h"

class BlockCache;

/// How the values of a grid lie in its file: row after row, in each row node after node, in each
/// node one value after the other, all of them little-endian floats.
struct GridLayout {
  std::int64_t start = 0;   ///< where the first row begins, bytes
  std::int64_t stride = 0;  ///< from one row to the next, bytes: the nodes' and of padding
  int values = 1;           ///< of a node, 1 to 3

  friend bool operator==(const GridLayout&, const GridLayout&) = default;
};

/// Rectangle of nodes, counted from the first row and column of the file.
struct NodeWindow {
  std::int64_t row;     ///< >= 0
  std::int64_t column;  ///< >= 0
  int rows;             ///< > 0
  int columns;          ///< > 0
};

/// Reads nodes from a grid file that nobody keeps open between two readings.
///
/// What was read before is kept in blocks, in at most some 6 MiB however large the file is. The
/// blocks count only as long as the file is the one that they were read from: a look at its state
/// on disk goes before they are used, at most every two microseconds, since no change of a file is
/// made and told of faster. A file that was changed in the last moments isn't kept at all.
///
/// For one thread at a time. A copy starts without blocks.
class KORVELFILE_EXPORT GridReader {
 public:
  GridReader();
  ~GridReader();
  GridReader(const GridReader& other);
  GridReader& operator=(const GridReader& other);

  /// Reads the nodes of `window`, row after row, into `nodes`.
  ///
  /// @param nodes room for rows x columns x values floats; undefined after a failure
  /// @return false if the file can't be opened or read, or ends before
  bool Read(const std::string& path, const GridLayout& layout, const NodeWindow& window,
            float* nodes);

  /// Lets everything be read anew.
  void Forget();

 private:
  bool AreBlocksValid();
  void LookAt(const FileState& state);
  bool Holds(const NodeWindow& window) const;
  bool ReadFromFile(const NodeWindow& window, float* nodes);

  std::string path_;
  GridLayout layout_;
  FileState state_;
  std::int64_t wholeRows_ = 0;  ///< in the file, of its size when it was looked at
  std::chrono::steady_clock::time_point lastLook_;
  std::unique_ptr<BlockCache> cache_;
};
