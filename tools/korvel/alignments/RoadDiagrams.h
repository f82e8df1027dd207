#pragma once

#include <string>
#include <vector>

#include "korvelfile/alignments/TLin.h"
#include "tools/korvel/alignments/Diagram.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace korvel {

/// "R 250" of an arc, "A 120" of a clothoid, else empty.
std::string FigureOf(const TLin& element);

/// What there are files for: heights, curvature, crossfalls.
std::vector<Diagram> DiagramsOf(const Road& road);

}  // namespace korvel
