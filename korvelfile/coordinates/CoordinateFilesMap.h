#pragma once

#include <memory>
#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"
#include "korvelfile/coordinates/PointInfo.h"

/// Several coordinate files opened as one set, with an index over their points by unique names.
///
/// A free point is named as in its file, a point of a line "line.point"; white space at both ends
/// is taken off, "," becomes ".", and a name that is taken already gets "_x2", "_x3" and so on. The
/// files stay in use for as long as the map holds them, so that attribute holders stay valid;
/// nothing is written.
///
/// Copies share the same set. One thread at a time.
class KORVELFILE_EXPORT CoordinateFilesMap : public GraphicsObjectInterface {
 public:
  enum LoadResult : int {
    NamesKept = 0,     ///< points were indexed, all under their own names
    NamesChanged = 1,  ///< points were indexed, at least one under another name
    NoPoints = 2,      ///< no point was indexed
    LoadFailed = 3,    ///< at least one file couldn't be loaded; the others are indexed
  };

  /// An empty map: the maxima are -DBL_MAX, the minima DBL_MAX.
  CoordinateFilesMap();
  CoordinateFilesMap(const std::vector<std::string>& files, const std::wstring& directory);

  /// Replaces the set by these files: `.geo`, `.pxy` and `.llc`, told by their extensions.
  /// @param directory put in front of each name as it is, so it ends with a separator; may be empty
  LoadResult LoadFiles(const std::vector<std::string>& files, const std::wstring& directory);

  /// Looks up an exact unique name; false, with `info` unchanged, if it isn't there.
  bool GetPoint(const std::string& name, PointInfo& info) const;

  /// Adds a point that belongs to no file, under a name made unique.
  void AddPoint(const std::string& name, const Vector3d& position);

  /// Adds a point in place of the one that the last call added. The extent stays.
  /// @return its unique name
  std::string SetAdditionalPoint(const std::string& name, const Vector3d& position);

  /// All unique names, in load order.
  const std::vector<std::string>& GetPointList() const;

  /// The unique names of each line of at least two points, in order; a closed line ends with its
  /// first name again.
  const std::vector<std::vector<std::string>>& GetLineList() const;

  const std::vector<std::shared_ptr<GraphicsObjectInterface>>& GetGraphicsObjects() const;

  /// The names given of the files that loaded, in the order of the file indexes.
  const std::vector<std::string>& GetFileNames() const;

  /// Extent of the indexed points, in metres; 0 to 1 after a load without points.
  double GetMaxX() const;
  double GetMaxY() const;
  double GetMaxZ() const;
  double GetMinX() const;
  double GetMinY() const;
  double GetMinZ() const;

  void* GetGraphicsObject() override { return this; }
  int GetProxyType() override { return 13; }
  bool IsForReadOnly() override { return false; }

 private:
  class Implementation;

  std::shared_ptr<Implementation> implementation_;
};
