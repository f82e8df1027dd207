/// @file
/// What the loaded collectors of each format hold, as members of a JSON object.
#pragma once

#include "tools/korvel/JsonText.h"

class AttributeFile;
class LevFile;
class MeasurementFile;
class PxyCoordinateFile;

namespace korvel {

/// Counts of points and lines, extent in metres, codes.
void AddCoordinates(const PxyCoordinateFile& file, Json& summary);

/// Counts of stations and records by type, and each station with its own.
void AddMeasurements(const MeasurementFile& file, Json& summary);

/// Counts of readings, points with heights, codes.
void AddLevelling(const LevFile& file, Json& summary);

/// Contexts with the names of their attributes.
void AddAttributeDefinitions(const AttributeFile& file, Json& summary);

}  // namespace korvel
