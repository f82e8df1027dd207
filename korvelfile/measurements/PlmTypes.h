#pragma once

#include <cstdint>

/// Numbers of the `.plm` format. They stand in files and never change.
namespace PlmTypes {

/// The kind of a record. Other values than these are the application's and are carried unchanged.
enum inm_rec_t : std::int16_t {
  /// A sight to a known point from a known station, or to a control line point. The offsets of the
  /// station's distance meter don't act on it.
  RecordKnownBacksight = 4,
  /// A sight to a point that a free station can use.
  RecordFreeBacksight = 7,
  /// The kind of a new record. In a query: every kind.
  RecordAny = 8
};

/// Version of the file, and of all items in it: 1.08.
inline constexpr int kVersion = 0x00010008;

/// First versions that hold what their names say; a file of a lower version leaves it at the
/// default of a new item.
inline constexpr int kDateAsNumber = 0x00010002;    ///< before, the station's date is a text
inline constexpr int kAtmApplied = 0x00010003;      ///< of stations
inline constexpr int kDistanceOffset = 0x00010004;  ///< of records
inline constexpr int kFifthError = 0x00010005;      ///< of the precision
inline constexpr int kCurvature = 0x00010006;       ///< of stations: radius, refraction, switch
inline constexpr int kScalePpm = 0x00010007;        ///< of stations
inline constexpr int kRefractivity = 0x00010008;    ///< of stations: N and A of the instrument

}  // namespace PlmTypes
