#pragma once

#include <string>

namespace korvel {

struct FieldScene;

/// Draws a model to a page of A4: corrections as arrows and colours, triangles, and the scales of
/// them all.
/// @param path told by its extension: .svg, .pdf or .png; replaced whole
/// @throws InputError if the file can't be written
void WriteFieldPlot(const std::string& path, const FieldScene& scene);

}  // namespace korvel
