#pragma once

#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector3d.h"

/// What the adjustment of a free station found: position, orientation, errors and residuals.
///
/// A plain value, safe to copy between threads; it serves one adjustment. Metres and radians;
/// positions are (E, N, H). "Undefined" is the undefined number, `kUndefined`. Lists have one entry
/// per backsight, in their order; "name" is that of a backsight. Each largest residual is the one
/// of the largest absolute value, the first of equals, with its sign; its name is empty if none
/// differs from 0.
struct FreeStnResult {
  Vector3d Position;         ///< of the station
  Vector3d PositionError;    ///< standard errors of E, N and H; undefined if nothing is redundant
  double Orientation = 0.0;  ///< of the circle: reading plus this is an azimuth
  double OrientationError = 0.0;  ///< its standard error; set if those of E and N are defined
  double StdDev = 0.0;  ///< standard deviation of unit weight of the plane, or undefined: 1 if the
                        ///< observations are as good as their a-priori errors say

  double EllipseA = 0.0;        ///< larger semi-axis of the standard error ellipse, or undefined
  double EllipseB = 0.0;        ///< smaller semi-axis, or undefined
  double EllipseBearing = 0.0;  ///< azimuth of the larger one, 0 to pi, or undefined

  double MaxAngleResidual = 0.0;  ///< largest direction residual, adjusted minus observed
  std::string MaxAngleName;
  double MaxDistanceResidual = 0.0;  ///< largest distance residual, adjusted minus observed
  std::string MaxDistanceName;
  double MaxPlaneResidual = 0.0;  ///< largest of `PlaneResiduals`
  std::string MaxPlaneName;
  double MaxHeightResidual = 0.0;  ///< largest of `HeightResiduals`
  std::string MaxHeightName;
  double Max3DResidual = 0.0;  ///< largest of `Residuals3D`
  std::string Max3DName;

  /// Distances from each given point to where the sight puts it from the adjusted station. Without
  /// a measured distance, to where the adjusted one would put it.
  std::vector<double> PlaneResiduals;
  /// The station's height less the one that the backsight gives; undefined where it gives none.
  std::vector<double> HeightResiduals;
  /// Plane and height residual together; an undefined height residual counts as 0.
  std::vector<double> Residuals3D;
};
