/// @file
/// From the raw observations of a record to horizontal distance, direction and height difference.
///
/// The one place where atmosphere, earth curvature, refraction, scale, the instrument's offsets and
/// the special codes of a record act on a measurement. Metres and radians; a direction is an
/// azimuth, clockwise, a vertical reading a zenith angle. `ppm` is a scale in parts per million:
/// the factor 1 + ppm 1e-6. The caller chooses it, mostly `GetAtmPPMIfNotApplied`; nobody here
/// looks at `AtmApplied` but the functions that say so.
///
/// Nothing here reports errors or changes its arguments. A measured distance below 1e-7 m, or an
/// undefined one, counts as missing. Numbers that can't come from a measurement (a height
/// difference longer than its slope distance) give NaN. Without a defined `EarthRadius` other than
/// 0 there is neither curvature nor refraction. All functions are safe from any thread. The
/// formulas stand in docs/computations/polar-reductions.md.
#pragma once

#include "korvelfile/Export.h"

class RecordDataItem;
class StationDataItem;

/// Atmospheric correction of the station's distances, ppm: the refractivity that the instrument
/// reckons with less the present one. 0.0 if one of `InstrumentN`, `InstrumentA`, `Pressure` and
/// `Temperature` is 0.0 or undefined.
KORVELFILE_EXPORT double GetAtmPPM(const StationDataItem& station);

/// `GetAtmPPM`, but 0.0 where the instrument has applied the correction itself.
KORVELFILE_EXPORT double GetAtmPPMIfNotApplied(const StationDataItem& station);

/// The constants for a station's `InstrumentN` and `InstrumentA`.
///
/// @param wavelength  of the carrier, metres
/// @param temperature of the instrument's reference atmosphere, kelvin
/// @param pressure    of the instrument's reference atmosphere, pascal
/// @param n  receives the refractivity at the reference, ppm
/// @param a  receives the refractivity times kelvin per hectopascal
///
/// Source: group refractivity of Barrell and Sears.
KORVELFILE_EXPORT void CalculateInstrNandA(double wavelength, double temperature, double pressure,
                                           double& n, double& a);

/// Geometric correction in ppm, for a station's `ScalePpm`, with a radius of 6389000 m.
///
/// @param scale  scale factor of the map projection on its central meridian
/// @param offset distance of the line from that meridian, metres
/// @param height of the line, metres
KORVELFILE_EXPORT double GetGeomPPM(double scale, double offset, double height);

/// Horizontal distance, metres; 0.0 without a measured one.
KORVELFILE_EXPORT double GetHorDist(const StationDataItem& station, const RecordDataItem& record,
                                    double ppm);

/// Horizontal direction as on the circle in the first face, radians: not oriented, and not brought
/// into a period.
KORVELFILE_EXPORT double GetHorAngle(const StationDataItem& station, const RecordDataItem& record,
                                     double ppm);

/// Height difference from the sighting axis to the target, metres; undefined where the station
/// gives no heights or the distance is missing.
KORVELFILE_EXPORT double GetHeightDiff(const StationDataItem& station, const RecordDataItem& record,
                                       double ppm);

/// Height difference from the station mark to the point, metres; undefined as `GetHeightDiff`.
KORVELFILE_EXPORT double GetHeightDiffPoints(const StationDataItem& station,
                                             const RecordDataItem& record, double ppm);
