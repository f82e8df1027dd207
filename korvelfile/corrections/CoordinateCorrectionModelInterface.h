#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/Vector3d.h"

/// A model that knows by how much coordinates and heights are to be corrected at a place.
///
/// A correction is added to a coordinate: corrected north = north + x, corrected east = east + y,
/// corrected height = height + z. The unit of x and y is that of the coordinates.
class KORVELFILE_EXPORT CoordinateCorrectionModelInterface {
 public:
  virtual ~CoordinateCorrectionModelInterface();

  /// Opens the model in the file `name`, which goes to the system as UTF-8; false if that fails.
  virtual bool OpenFile(const std::wstring& name) = 0;

  /// The correction at a place.
  ///
  /// @param corrections x goes with north, y with east, z with the height
  /// @return false if the model has no correction there; `corrections` means nothing then
  virtual bool GetCorrections(double north, double east, Vector3d& corrections) const = 0;

  /// The correction that leads to a corrected place: the one at (n, e) where (n, e) plus the
  /// correction is (`north`, `east`).
  ///
  /// @return false if the model has no correction there; `corrections` means nothing then
  virtual bool GetInverseCorrections(double north, double east, Vector3d& corrections) const = 0;

 protected:
  CoordinateCorrectionModelInterface() = default;
  CoordinateCorrectionModelInterface(const CoordinateCorrectionModelInterface&) = default;
  CoordinateCorrectionModelInterface& operator=(const CoordinateCorrectionModelInterface&) =
      default;
};
