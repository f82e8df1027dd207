#pragma once

#include <memory>
#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/outside/services/ICoordinateFile.h"

class LineDataItem;
class PxyCoordinateFile;

namespace internal {
class FileLine;
}

/// The lines of a loaded `PxyCoordinateFile` for those who change lines by number. Free points
/// aren't seen.
///
/// New points reach the file when nobody holds their line any more, or with `Finish`; until then
/// the adapter's lines alone know them, and nobody else may touch the lines. All changes flag the
/// file dirty; writing it is the caller's.
///
/// Not safe to be used from several threads.
class KORVELFILE_EXPORT CoordinateFileAdapter : public Korvel::ICoordinateFile {
 public:
  /// @param file in use, and not for read-only work; it takes and loses no lines by other ways
  ///             as long as the adapter lives
  explicit CoordinateFileAdapter(std::shared_ptr<PxyCoordinateFile> file);
  ~CoordinateFileAdapter() override;
  CoordinateFileAdapter(const CoordinateFileAdapter&) = delete;
  CoordinateFileAdapter& operator=(const CoordinateFileAdapter&) = delete;

  int GetLineCount() const override;

  /// @throws std::out_of_range if there is no such line
  std::shared_ptr<Korvel::ICoordinateLine> GetLine(int index) override;

  /// @throws std::out_of_range for an index above the count
  std::shared_ptr<Korvel::ICoordinateLine> InsertLine(int index, const std::string& name) override;

  /// Brings the new points of all lines into the file.
  void Finish() override;

 private:
  struct Entry {
    LineDataItem* item;
    std::weak_ptr<internal::FileLine> line;  ///< while somebody holds it
  };

  std::shared_ptr<PxyCoordinateFile> file_;
  std::vector<Entry> lines_;
};
