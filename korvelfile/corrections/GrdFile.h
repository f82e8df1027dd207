#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/String.h"

class GridReader;

/// Geoid, or any other surface of heights given on a regular grid in a `.grd` file.
///
/// The grid stays on disk. Between two calls no file is open; the four nodes of the cell asked for
/// last and a few MiB of what was read before are held in memory, whatever the size of the grid. A
/// file changed on disk is seen as soon as another cell is asked for.
///
/// The object is for one thread at a time. Copies are independent of each other.
class KORVELFILE_EXPORT GrdFile {
 public:
  /// What the coordinates of a grid are.
  enum CoordType {
    kGeographic = 0,  ///< latitude and longitude: degrees in the file, radians in this class
    kPlain = 1,       ///< as they stand, such as metres
  };

  /// Number at the start of a `.grd` file.
  static constexpr int kGeographicMagic = 777;
  static constexpr int kPlainMagic = 778;

  /// Told how much of a conversion is done, 0 to 1, now and then.
  using Progress = std::function<void(double done)>;

  GrdFile();
  ~GrdFile();
  GrdFile(const GrdFile& other);
  GrdFile& operator=(const GrdFile& other);

  /// Reads the header of a `.grd` file.
  ///
  /// @return true, without reading anything, if a file is open already; false if the file can't be
  ///   read or is no `.grd` file
  bool OpenFile(const char* path);

  /// Makes the object ready for another file; until then it answers nothing.
  void CloseFile();

  /// Coordinates of the file opened last.
  CoordType GetCoordType() const { return coordType_; }

  /// @name Raster of the open file
  /// Rows count from the north, columns from the west. Coordinates are radians in a geographic
  /// grid. A grid without rows or columns answers nothing.
  /// @{
  std::int32_t GetRows() const { return rows_; }              ///< How many.
  std::int32_t GetColumns() const { return columns_; }        ///< How many.
  double GetNorthLimit() const { return northLimit_; }        ///< Of the first row.
  double GetWestLimit() const { return westLimit_; }          ///< Of the first column.
  double GetRowSpacing() const { return rowSpacing_; }        ///< From row to row.
  double GetColumnSpacing() const { return columnSpacing_; }  ///< From column to column.
  /// @}

  /// The height at a position, between the four nodes around it.
  ///
  /// A position up to 1e-10 beyond a limit counts as within. In a geographic grid that reaches from
  /// a longitude of 0 or more to one of pi or more, a negative longitude counts as one turn more.
  /// @param east longitude, radians, or east in the unit of the file
  /// @param north latitude, radians, or north in the unit of the file
  /// @param height set where the result is true; in the unit of the file, mostly metres
  /// @return false if no file is open, the position lies outside the grid or is no number, one of
  ///   the four nodes has no value, or the file can't be read or ends before them
  bool GetHeight(double east, double north, double* height);

  /// Makes a `.grd` file beside the BYN file `path`, in place of one that is there.
  ///
  /// The header of a BYN file is little endian. Heights of 2 bytes become numbers without a value
  /// where they are 32767; heights of 4 bytes have no such mark.
  /// @return false if the BYN file can't be read or the `.grd` file can't be written
  bool ConvertCanadaBYN(const char* path);

  /// The same with heights in the order of bytes that `BynHeightOrder` tells.
  bool ConvertCanadaBYN(const char* path, std::endian heights, const Progress& progress = {});

  /// Order of bytes of the heights of a BYN file; nothing if it can't be read or doesn't tell.
  static std::optional<std::endian> BynHeightOrder(const char* path);

  /// Makes a `.grd` file beside the text file `path`, in place of one that is there.
  ///
  /// The text holds numbers: south, north, west and east limit, spacing of rows and of columns,
  /// then the heights row by row from the north, each from west to east. It ends at what is no
  /// number.
  /// @param magic first number of the new file; not tested
  /// @return false if the text can't be read or the `.grd` file can't be written
  bool ConvertText(const char* path, int magic, const Progress& progress = {});

 private:
  struct Position {
    double east;
    double north;
  };

  bool MoveInside(Position& position) const;
  bool ReadCell(std::int32_t row, std::int32_t column);
  void ForgetCell();

  bool isOpen_ = false;
  String name_;
  std::int32_t rows_ = 0;
  std::int32_t columns_ = 0;
  double northLimit_ = 0.0;
  double westLimit_ = 0.0;
  double rowSpacing_ = 0.0;
  double columnSpacing_ = 0.0;
  double southLimit_ = 0.0;
  double eastLimit_ = 0.0;
  std::int32_t cellColumn_ = -1;
  std::int32_t cellRow_ = -1;
  std::array<double, 4>
      corners_{};  ///< of the cell: north-east, north-west, south-east, south-west
  CoordType coordType_ = kGeographic;
  std::unique_ptr<GridReader> reader_;
};
