#pragma once

#include <optional>
#include <string>
#include <vector>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/outside/base/Vector3d.h"

namespace korvel {

class LibraryMessages;

/// A point of the coordinate files, as a record names it.
struct KnownPoint {
  std::string name;   ///< unique among all files
  std::string file;   ///< the file it stands in
  Vector3d position;  ///< (E, N, H); undefined where the file has none
};

/// The known points of a job: one index over all coordinate files.
class KnownPoints {
 public:
  /// Loads the files.
  /// @throws InputError that names every file that can't be read, with the line where there is one
  KnownPoints(const std::vector<std::string>& files, LibraryMessages& messages);

  /// The point that the record `name` sights, or nothing.
  ///
  /// Looked for in this order: the name as it stands; the name as the index spells it, without
  /// white space around it and with "." for ","; both again behind "<line>." for a record in a
  /// line, as the points of lines are indexed.
  /// @param line name of the line that holds the record; empty outside of lines
  std::optional<KnownPoint> Find(const std::string& name, const std::string& line) const;

  /// One line for each file: how many points it holds.
  const std::vector<std::string>& GetFileLines() const { return fileLines_; }

  /// What the user should know: points that had to be given another name.
  const std::vector<std::string>& GetWarnings() const { return warnings_; }

 private:
  std::string FileOf(const PointInfo& point) const;
  void CountPoints();
  void WarnOfRenamed();
  std::string DescribeRenamed(const std::string& name, const PointInfo& point) const;

  CoordinateFilesMap map_;
  std::vector<std::string> fileLines_;
  std::vector<std::string> warnings_;
};

}  // namespace korvel
