#pragma once

#include <array>
#include <iosfwd>
#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/corrections/CcgFileInfo.h"
#include "korvelfile/corrections/CcgInputGrid.h"
#include "korvelfile/corrections/CoordinateCorrectionModelInterface.h"
#include "korvelfile/corrections/GeoStatus.h"
#include "korvelfile/outside/base/Vector3d.h"

class GridReader;

/// A correction grid in a file: a raster of corrections that it answers from anywhere within, and
/// that it can create, update and widen.
///
/// The file is read for each cell anew, with nothing held open between two calls: it must stay
/// under its name as long as corrections are asked for, and what changes in it is seen. Memory
/// doesn't grow with the grid. Positions have 32 bits, so a file ends at 2 GiB; nodes beyond have
/// no value.
///
/// Corrections have the unit of the grid: metres, or radians on latitude and longitude. A place has
/// a correction only where all nodes that its method looks at have a value: a finite number below
/// 9998.
///
/// One thread at a time, also for corrections, which change the cell at hand. A copy is a file
/// object of its own; moving copies.
class KORVELFILE_EXPORT CcgFile : public CoordinateCorrectionModelInterface {
 public:
  CcgFile();  ///< No grid: every correction is false.
  ~CcgFile() override;
  CcgFile(const CcgFile& other);
  CcgFile& operator=(const CcgFile& other);

  /// Reads the header of the file `name`, which goes to the system as UTF-8.
  ///
  /// What is missing of a short header counts as zeros. Approximate corrections stay as they were
  /// if the file is older than they are (format versions below 3).
  /// @return false if the file can't be read, has another magic or a version above 5; there is no
  ///   grid then
  bool OpenFile(const std::wstring& name) override;

  /// The correction at (`north`, `east`).
  ///
  /// A bilinear grid answers within its limits, 0.1 mm beyond them too (on latitude and longitude
  /// that length over 6378137 m, in radians); with another method for X and Y or for Z the
  /// outermost ring of cells has no corrections. Source of the formulas:
  /// docs/computations/grid-interpolation.md.
  ///
  /// @param corrections of the components that the grid hasn't, z is set to 0; x and y are too,
  ///   but stay as they are in a grid without both
  bool GetCorrections(double north, double east, Vector3d& corrections) const override;

  /// The correction that leads to (`north`, `east`), by up to ten iterations.
  ///
  /// The correction found is that of a place within 0.1 mm of the right one, or else the tenth.
  /// @return false outside the grid, and always for `CorrectionLatLongForward`
  bool GetInverseCorrections(double north, double east, Vector3d& corrections) const override;

  /// Writes `grid` to the file that it names, and opens that.
  ///
  /// A file that isn't there is created; a `grid` without a format version gets the current one.
  /// Else the nodes of `grid` snap to the nearest ones of the file and overwrite them, those
  /// without a value too. A file that `grid` reaches beyond is widened first; nodes in neither have
  /// no value. The file is changed in place: a failure of the system leaves it as far as it was
  /// written.
  ///
  /// @return `GeoSuccess`; `GeoGridMismatch`, with the file untouched, if `grid` has another
  ///   spacing, or other types than a file to be widened, or nodes of another size than the file;
  ///   `GeoFileError` if the file can't be read or written. That includes, with the file untouched,
  ///   a `grid` without a value or whose residuals aren't those of its rows and columns, a file
  ///   beyond 2 GiB, a file much shorter than its header tells and a widened one out of all
  ///   proportion.
  GeoStatus CreateOrUpdateFile(const CcgInputGrid& grid);

  /// The approximate corrections of the header, for the application to use and to change.
  Vector3d& GetApproxCorrections();

  /// The header at hand.
  const CcgFileInfo& GetFileInfo() const;

 private:
  using Node = std::array<double, 3>;

  // Where a point lies in its cell, in parts of the cell: south of the north row, north of the
  // south row, east of the west column.
  struct Fractions {
    double u;
    double t;
    double s;
  };

  bool ReadHeader(const std::string& name);
  bool WriteHeader(std::ofstream& out) const;
  bool WriteData(std::ofstream& out, const CcgInputGrid& grid) const;
  bool WriteAllData(std::ofstream& out, const CcgInputGrid& grid) const;
  bool FillUp(std::ofstream& out) const;
  void CreateGridFromFile(CcgInputGrid& grid) const;
  GeoStatus Create(const CcgInputGrid& grid);
  GeoStatus Update(const CcgInputGrid& grid);
  GeoStatus Expand(const CcgInputGrid& grid);
  void DropCache();

  bool Interpolate(double north, double east, Vector3d& corrections, int type) const;
  bool GetCorrectionsBilinear(double north, double east, Vector3d& corrections) const;
  bool GetCorrectionsBicubic(double north, double east, Vector3d& corrections) const;
  bool GetCorrectionsOverhausen(double north, double east, Vector3d& corrections) const;
  bool GetCorrectionsBiquadratic(double north, double east, Vector3d& corrections) const;
  template <class Value>
  bool SetCorrections(Vector3d& corrections, Value value) const;

  bool GetInterpolationNodes(double north, double east) const;
  bool CheckLimits(double& north, double& east) const;
  bool ReadNodes(int row, int column) const;
  bool ReadNode(const float* floats, Node& node) const;
  double GetTolerance() const;
  Fractions GetFractions(double north, double east) const;

  CcgFileInfo info_;
  double tolerance_ = 0.0001;  // metres

  // The cell at hand: its north-west node, -1 if there is none, and the nodes around. Its own four
  // are (1,1), (1,2), (2,1) and (2,2); rows run from north to south, columns from west to east.
  mutable int cachedRow_ = -1;
  mutable int cachedColumn_ = -1;
  mutable bool needsFourNodes_ = false;
  mutable std::array<std::array<Node, 4>, 4> stencil_{};
  mutable std::unique_ptr<GridReader> reader_;
};
