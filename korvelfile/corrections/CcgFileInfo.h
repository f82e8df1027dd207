#pragma once

#include <cstdint>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/Vector3d.h"

/// What a node of a correction grid holds. The numbers stand in files and never change.
///
/// X goes with the north axis, Y with the east axis, Z is the height correction, m. With latitude
/// and longitude as axes, north, east, X and Y are radians, else metres. Other values have no
/// floats and no components.
enum CorrectionTypes : int {
  CorrectionZ = 1,               ///< Z.
  CorrectionXY = 2,              ///< X, Y.
  CorrectionXYZ = 3,             ///< X, Y, Z.
  CorrectionLatLongForward = 4,  ///< X, Y, Z on latitude and longitude, without an inverse.
  CorrectionLatLongZ = 5,        ///< Z on latitude and longitude.
  CorrectionLatLongXY = 6,       ///< X, Y on latitude and longitude.
  CorrectionLatLongXYZ = 7,      ///< X, Y, Z on latitude and longitude.
};

/// How values between the nodes come about. The numbers stand in files and never change; other
/// values interpolate nothing.
enum InterpolationTypes : int {
  Bilinear = 1,     ///< From the four nodes of the cell.
  Bicubic = 2,      ///< Cubic Lagrange polynomials through sixteen nodes.
  Overhausen = 3,   ///< Bi-directional Overhauser spline through sixteen nodes.
  Biquadratic = 4,  ///< Through the nine nodes around the nearest node; takes sixteen to be there.
};

/// Header of a correction grid: a regular raster of nodes over a rectangle in north and east.
///
/// Row 0 lies at the north limit and rows grow southwards; column 0 lies at the east minimum and
/// columns grow eastwards. A plain value.
class KORVELFILE_EXPORT CcgFileInfo {
 public:
  std::string fileName;            ///< Path of the file, in the system's bytes.
  std::uint8_t formatVersion = 0;  ///< 0 to 5; 0 with a data offset of 0 means: none yet.
  std::uint8_t dataOffset = 0;     ///< Bytes from the start of the file to the first node.
  int correctionType = 0;          ///< One of `CorrectionTypes`; 8 bits in the file.
  int planeInterpolation = 0;      ///< One of `InterpolationTypes`, for X and Y and the limits.
  int heightInterpolation = 0;     ///< One of `InterpolationTypes`, for Z.
  double northMax = 0.0;           ///< North of row 0, m or rad.
  double northMin = 0.0;           ///< North of the last row, m or rad.
  double eastMin = 0.0;            ///< East of column 0, m or rad.
  double eastMax = 0.0;            ///< East of the last column, m or rad.
  double northSpacing = 0.0;       ///< Between rows, m or rad, > 0.
  double eastSpacing = 0.0;        ///< Between columns, m or rad, > 0.
  int rows = 0;                    ///< Number of rows.
  int columns = 0;                 ///< Number of columns.
  Vector3d approxCorrections;      ///< The application's own; nothing here computes with it.

  CcgFileInfo() = default;  ///< No rows, no columns, no types.

  /// A raster from its north-west node; no file name, no types, no version.
  CcgFileInfo(double northMax_, double eastMin_, double northSpacing_, double eastSpacing_,
              int rows_, int columns_);

  /// Floats of a node, 0 to 3.
  int GetNumberOfValues() const { return Type().values; }
  /// True if nodes hold X and Y.
  bool HasXYComponents() const { return Type().hasXY; }
  /// True if nodes hold Z.
  bool HasZComponent() const { return Type().hasZ; }
  /// True if the axes are latitude and longitude, in radians.
  bool IsLatLongType() const { return Type().isLatLong; }

  /// The row nearest to `north`; -1 if that is undefined, not a number or outside the limits.
  int GetRowFromNorth(double north) const;
  /// The column nearest to `east`; -1 if that is undefined, not a number or outside the limits.
  int GetColFromEast(double east) const;

  /// North of a row, counted from the southern limit; undefined if there is no such row.
  double GetNorthFromRow(int row) const;
  /// East of a column, counted from the eastern limit; undefined if there is no such column.
  double GetEastFromCol(int column) const;

  /// True if the rasters can become one: same file name, correction type, plane interpolation,
  /// height interpolation (if this version holds one, from 5 on) and spacings, all exactly.
  bool CanExpandWith(const CcgFileInfo& other) const;

  /// True if `other` has exactly these spacings and lies within these limits. Types and file name
  /// aren't compared.
  bool CanUpdateWithoutExpansionWith(const CcgFileInfo& other) const;

  /// Widens the limits until `other` lies within; rows and columns follow.
  ///
  /// @return false, with nothing changed, if `CanExpandWith` is
  bool ExpandHeaderWith(const CcgFileInfo& other);

  /// Derives rows and columns from limits and spacings, as for a file, which holds neither.
  ///
  /// A number that is none, negative or too large for an `int` counts as 0: such a grid has no
  /// nodes.
  void DeriveRowsAndColumns();

 private:
  struct TypeTraits {
    int values;
    bool hasXY;
    bool hasZ;
    bool isLatLong;
  };

  // In line: a correction asks for these several times.
  TypeTraits Type() const {
    static constexpr TypeTraits kTypes[] = {
        {0, false, false, false},  // unknown
        {1, false, true, false},   // CorrectionZ
        {2, true, false, false},   // CorrectionXY
        {3, true, true, false},    // CorrectionXYZ
        {3, true, true, true},     // CorrectionLatLongForward
        {1, false, true, true},    // CorrectionLatLongZ
        {2, true, false, true},    // CorrectionLatLongXY
        {3, true, true, true},     // CorrectionLatLongXYZ
    };
    const bool isKnown = correctionType >= CorrectionZ && correctionType <= CorrectionLatLongXYZ;
    return kTypes[isKnown ? correctionType : 0];
  }
};
