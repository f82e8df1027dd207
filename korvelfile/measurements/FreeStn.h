#pragma once

#include <optional>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/measurements/CBacksight.h"
#include "korvelfile/outside/base/Vector.h"
#include "korvelfile/outside/base/Vector3d.h"

class RecordDataItem;
class StationDataItem;
struct FreeStnResult;

namespace NEWMAT {
class ColumnVector;
class Matrix;
class SymmetricBandMatrix;
}  // namespace NEWMAT

/// Free station: position and orientation of an instrument on an unknown spot, from sights to known
/// points, by weighted least squares.
///
/// Set the a-priori errors if the defaults don't do, add the backsights, call `CalcPlane`, then one
/// of the height operations. A point whose own position was measured by satellite is no fixed point
/// but is adjusted with the station.
///
/// Works in the frame (N, E, H), in which azimuths are mathematical angles; positions swap with
/// (E, N, H) where they enter and leave. Metres and radians.
///
/// A plain value. Objects may be used in different threads, one thread each; Newmat, which does the
/// matrices, is entered by one of them at a time. An application that calls Newmat itself must not
/// do so meanwhile.
///
/// Bad numbers: a position, direction or distance that is not finite, a-priori errors that give a
/// weight that is not finite (an error of 0), a point exactly under the instrument, and an
/// iteration that leaves the range of numbers make an operation give false. The result then holds
/// nothing new, though `PlaneResiduals` may be empty.
///
/// Formulas, sources and a worked example: docs/computations/free-station.md.
class KORVELFILE_EXPORT FreeStn {
 public:
  double AngleError = 1.2566370614359172e-5;     ///< of a direction; 0.0008 gon
  double VerticalError = 1.2566370614359172e-5;  ///< of a vertical angle, for weighted heights
  double DistanceError = 0.005;                  ///< of a distance, constant part
  double DistancePpm = 3.0;                      ///< of a distance, part that grows with it, ppm
  double CentringError = 0.003;                  ///< of targets and instrument
  int Sets = 0;  ///< sets in which directions were measured, >= 0; 0 counts as half a set

  std::vector<CBacksight> Backsights;  ///< in the order of adding
  Vector3d Station;                    ///< working position, (N, E, H)
  double Orientation = 0.0;            ///< working orientation, not brought into a period

  int DistanceCount = 0;   ///< backsights with a distance
  int BacksightCount = 0;  ///< all backsights
  int HeightCount = 0;     ///< backsights with a height difference
  int GpsCount = 0;        ///< backsights with a satellite position

  /// Replaces the six a-priori errors; mind the order. Standard errors, as the fields of these
  /// names.
  void SetAprioriErrors(double distanceError, double distancePpm, double angleError,
                        double verticalError, double centringError, int sets);

  /// Adds a sight to a fixed point.
  ///
  /// A record with the `Distance` 0.0 or undefined is a direction alone, and gives no height.
  /// @param station  set-up, whose settings rule the reduction
  /// @param record   observation
  /// @param point    position of the point (E, N, H), its height possibly undefined
  /// @param ppm      scale correction of the distance, mostly `GetAtmPPMIfNotApplied`
  void AddBacksight(const StationDataItem& station, const RecordDataItem& record,
                    const Vector3d& point, double ppm);

  /// Adds a sight to a point whose position was measured by satellite.
  ///
  /// @param point   that position, (E, N, H)
  /// @param errors  its standard errors, (E, N, H), > 0
  void AddBacksightGPS(const StationDataItem& station, const RecordDataItem& record,
                       const Vector3d& point, const Vector3d& errors, double ppm);

  /// Adjusts the plane: position, orientation, their errors, the ellipse and the residuals.
  ///
  /// Every call begins anew with the given positions. An adjustment that has not converged after 10
  /// iterations stands as it is; the caller judges the report.
  /// @return false, with nothing new in `result`, if there are too few observations (two backsights
  ///         one of which has a distance, or three backsights, are enough), if no first position is
  ///         found, as with all points on one spot, or if the counters do not fit `Backsights`
  /// @throws NEWMAT::SingularException if the normal matrix cannot be inverted; `Station`,
  ///         `Orientation` and `result` are then of no use
  bool CalcPlane(FreeStnResult& result);

  /// Height as the mean of what the backsights give. Needs no plane; with one, it adds the spatial
  /// residuals.
  /// @return false, with nothing new in `result`, without a height difference
  bool CalcHeight(FreeStnResult& result);

  /// Height by weighted least squares, with satellite heights as observations. Needs the plane,
  /// whose distances make the weights.
  /// @return false, with nothing new in `result`, without a height difference
  /// @throws NEWMAT::SingularException as `CalcPlane`
  bool CalcHeightWeighted(FreeStnResult& result);

  /// The first position that `CalcPlane` does not take, where the sights leave a choice.
  ///
  /// One distance and two directions can fit two positions. With two backsights both fit exactly,
  /// and nothing but knowledge of the place tells them apart; `CalcPlane` takes the one farther
  /// from the point without distance. With more it takes the one that fits the others better.
  /// @return (E, N), or nothing if there was no choice
  std::optional<Vector> GetSecondPosition() const;

 private:
  bool CalcApproxData();
  void SetupDesignMatrix(NEWMAT::Matrix& A) const;
  void SetupObsVector(NEWMAT::ColumnVector& l) const;
  void SetupWeightMatrix(NEWMAT::SymmetricBandMatrix& P) const;
  void SetupDesignMatrixH(NEWMAT::Matrix& A) const;
  void SetupObsVectorH(NEWMAT::ColumnVector& l) const;
  void SetupWeightMatrixH(NEWMAT::SymmetricBandMatrix& P) const;
  void Calc3DResiduals(FreeStnResult& result) const;

  void Correct(const NEWMAT::ColumnVector& x);
  void ReportPlane(const NEWMAT::ColumnVector& v, FreeStnResult& result) const;
  void TakeHeights(const NEWMAT::ColumnVector& x);
  void ReportHeights(FreeStnResult& result) const;
};
