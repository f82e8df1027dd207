#pragma once

#include <string>

namespace korvel {

struct StationOptions;
struct StationOutcome;

/// Draws a computed station to a page of A4: map, error ellipse and residuals each to a scale of
/// its own, legend and figures.
/// @param path told by its extension: .svg, .pdf, or .png with 2 pixels per point; replaced whole
/// @throws InputError if the file can't be written
void WriteStationPlot(const std::string& path, const StationOutcome& outcome,
                      const StationOptions& options);

}  // namespace korvel
