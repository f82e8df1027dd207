#pragma once

#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector3d.h"

class InmlineDataItem;
class IStationVisitor;
class PointDataItem;
class PrecisionDataItem;
class RecordDataItem;

/// The fields of a station, members of every `StationDataItem`.
///
/// Lengths are metres, angles radians. Fields marked "carried" mean something to the application
/// alone; they survive a read and a write unchanged.
struct StationFields {
  double InstrumentHeight = 0.0;           ///< of the instrument above the station mark
  unsigned char SlopeDistance = 1;         ///< not 0: distances are slope distances; 0: horizontal
  unsigned char HeightsMeasured = 1;       ///< 0: this station gives no heights
  unsigned char VerticalIsHeightDiff = 0;  ///< not 0: `Vertical` is a height difference in metres
  unsigned char Option3 = 0;               ///< carried, as the others of this name
  unsigned char Option4 = 0;
  unsigned char Option5 = 0;
  int StationType = 0;  ///< how it was established: 5 by a control line, others the application's.
                        ///< A file holds its lowest 8 bits
  unsigned char Option6 = 0;
  unsigned char Option7 = 0;
  unsigned char Option8 = 0;
  unsigned char Option9 = 0;
  double OffsetVertical = 0.0;  ///< of the distance meter from the sighting axis, across the line
                                ///< of sight in the vertical plane
  double OffsetMiddle = 0.0;    ///< carried
  double OffsetSideways = 0.0;  ///< of the distance meter from the sighting axis
  double Temperature = kUndefined;  ///< of the air, kelvin
  double Pressure = kUndefined;     ///< of the air, pascal
  std::string Text1;                ///< carried
  double Date = kUndefined;         ///< date and time as the number YYYYMMDD.HHMMSS
  std::string Text2;                ///< carried
  signed char Small0 = 0;           ///< carried, as the next two
  signed char Small1 = -1;
  signed char Small2 = -1;
  std::string Text3;               ///< carried
  signed char AtmApplied = 0;      ///< not 0: the instrument has applied the atmosphere already
  double EarthRadius = 6389000.0;  ///< for curvature
  double RefractionK = 0.14;       ///< refraction coefficient
  unsigned char CurvatureOn = 1;   ///< not 0: earth curvature and refraction are applied
  double ScalePpm = 0.0;           ///< geometric scale correction, see `GetGeomPPM`
  double InstrumentN = 0.0;        ///< refractivity constants, see `CalculateInstrNandA`
  double InstrumentA = 0.0;

  /// Where the established station stands, (E, N, H). Not in files.
  Vector3d Coordinates;
  /// Orientation of the horizontal circle: circle reading plus this is an azimuth, clockwise from
  /// north. Undefined until the station is established. Not in files.
  double ZeroAngle = kUndefined;
};

/// One set-up of a total station. The item name is the point name of the station.
///
/// Its list holds in measuring order what was measured from it, `RecordDataItem` and
/// `InmlineDataItem`, and its `GeoAttribList`. "Direct" records stand in that list itself, not in a
/// line. Walks hold the list's mutex while they handle an item.
class KORVELFILE_EXPORT StationDataItem : public DataItem<StationDataItem>,
                                          public DataItemListObject,
                                          public Streamable,
                                          public StationFields {
 public:
  StationDataItem() = default;
  /// Copies all fields, and all items of the list.
  StationDataItem(const StationDataItem& other) = default;
  StationDataItem& operator=(StationDataItem other);
  ~StationDataItem() override = default;

  /// Copies the name and every field but `OffsetMiddle`; the list stays as it is.
  void CopyShallow(const StationDataItem& other);

  Vector3d* GetCoordinates() { return &Coordinates; }

  /// Stores position (E, N, H) and orientation; always true.
  bool Establish(const Vector3d& enh, double zeroAngle);

  /// The direct record number `index` of a kind.
  /// @param index from 0; -1 means the last
  /// @return null if there is none
  RecordDataItem* GetRecord(PlmTypes::inm_rec_t type, int index);

  /// How many direct records of a kind there are.
  int GetRecordCount(PlmTypes::inm_rec_t type);

  /// Appends a new line of this name. The second argument has no meaning.
  /// @return the line, owned by the list
  InmlineDataItem* CreateLine(const std::string& name, int);

  /// Makes lines of neighbouring direct records whose names carry the same line number.
  ///
  /// The records "12.1", "12.2" become the records "1", "2" of a new line "12" that stands in the
  /// place of the first. Only neighbours are joined: another item between two records ends the
  /// line.
  void GenerateLines();

  /// `Date` as "2019-04-23  15:30:05"; empty if it is exactly 0.0.
  ///
  /// A number that can't be a date (undefined, negative, not a number, more than nine digits) gives
  /// "0-00-00  00:00:00".
  String GetDateText() const;

  /// A new point with the station's name and `Coordinates`, and those of its attributes "sN", "sE",
  /// "s0" and "sZ" that it has.
  std::shared_ptr<PointDataItem> GetStationPoint() const;

  /// Reads the a-priori errors from the attribute "FSASD".
  /// @return false, with `precision` unchanged, if there is none
  bool GetFreeStationAPriori(PrecisionDataItem& precision) const;

  /// Stores `precision` in the attribute "FSASD". It isn't changed.
  void SetFreeStationAPriori(PrecisionDataItem& precision);

  /// Turns the circle readings into azimuths: adds `ZeroAngle` to them, without normalising, and
  /// sets it to 0.0. Records in lines within lines are not reached. An undefined `ZeroAngle` adds
  /// nothing.
  void ResetZeroAngle();

  /// Shows the station to `visitor`: itself, then all direct records, then each direct line and the
  /// records directly in it.
  /// @param visitor not null
  void Accept(std::shared_ptr<IStationVisitor> visitor);

  /// The version of the `.plm` format.
  int GetVersion() const override { return PlmTypes::kVersion; }

  /// The fields of the row, in file order. Below `PlmTypes::kDateAsNumber` the date is a text: of a
  /// text the digits count, YYMMDD from 80 on in the 20th century.
  void Stream(DataStream& stream, int version) override;
};
