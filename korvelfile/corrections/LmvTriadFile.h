#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/corrections/CoordinateCorrectionModelInterface.h"
#include "korvelfile/corrections/Generic2DTin.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Vector3d.h"

/// Plane correction model from a triad file: corrections to north and east at the points of a
/// triangulated network, linear within each triangle.
///
/// The whole file is read into memory once. The points carry x = east correction and y = north
/// correction, as they are east and north themselves. Corrections may be asked for in any number
/// of threads at once, but not while a file is being opened. The format: docs/formats/triad.md.
class KORVELFILE_EXPORT LmvTriadFile : public FloatVectorTin,
                                       public CoordinateCorrectionModelInterface {
 public:
  LmvTriadFile();  ///< Without a network: every correction is false.
  ~LmvTriadFile() override;

  /// Reads the network of the file `name`, in place of the one before.
  ///
  /// @return false, with an empty network, if the file can't be read, isn't a triad file, ends
  ///   before its last record, has triangles with points that it doesn't hold, or so many triangles
  ///   at the same points that they are no network
  bool OpenFile(const std::wstring& name) override;

  /// Nothing: the file is closed already, and the network stays.
  void CloseFile();

  /// The correction at a place: the value of its triangle there, and at a point of the network
  /// exactly that of the point.
  ///
  /// The extents of the file aren't looked at.
  /// @param corrections x to north, y to east, z = 0; unchanged if the result is false
  /// @return false in no triangle, where a number is NaN, and where the correction isn't finite
  bool GetCorrections(double north, double east, Vector3d& corrections) const override;

  /// The correction that leads to a corrected place, by up to 10 passes until it fits to 0.0001.
  ///
  /// The last pass counts even if it doesn't fit.
  /// @param corrections as for `GetCorrections`
  /// @return false if a pass leaves the network
  bool GetInverseCorrections(double north, double east, Vector3d& corrections) const override;

  /// True if a place lies within the extents that the file states, not on their rim.
  bool CheckLimits(double& north, double& east) const;

  double GetNorthMax() const { return northMax_; }  ///< As the file states it.
  double GetEastMin() const { return eastMin_; }    ///< As the file states it.
  double GetNorthMin() const { return northMin_; }  ///< As the file states it.
  double GetEastMax() const { return eastMax_; }    ///< As the file states it.

 private:
  struct Header;

  void Clear();
  bool ReadNetwork();
  bool ReadHeader(Header& header);
  FloatVector ValueIn(const TinTriangleBase<FloatVector, TinPointBase<FloatVector>>& triangle,
                      const Vector& p) const;

  GeoFile file_;
  std::wstring name_;
  double tolerance_ = 0.0001;
  double northMax_ = 0.0;
  double eastMin_ = 0.0;
  double northMin_ = 0.0;
  double eastMax_ = 0.0;
};
