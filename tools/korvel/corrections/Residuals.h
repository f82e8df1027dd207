#pragma once

#include <array>
#include <string>
#include <vector>

#include "korvelfile/corrections/CcgInputGrid.h"
#include "tools/korvel/corrections/ModelUnits.h"

namespace korvel {

/// Corrections that are known at a place, in the units of the grid.
struct Residual {
  std::string source;  ///< file and line that it comes from
  double north = 0.0;
  double east = 0.0;
  std::array<float, 3> values{};  ///< in the order of a node, as many as it has
};

/// What the help of every verb that reads residuals says of their CSV text.
extern const char* const kResidualsHelp;

/// Reads residuals for a grid of the type of `grid` from CSV, "-" is standard input.
/// @throws InputError that names the line, for one that can't be read or stored in a node
std::vector<Residual> ReadResiduals(const std::string& path, const CcgFileInfo& grid,
                                    const ModelUnits& units);

/// Sets the nodes of `grid` to the residuals that lie at them.
/// @param snap how far a residual may lie from its node along either axis, in the units of the grid
/// @throws InputError that names the line of a residual that lies at no node, or at one that has
/// its
///   value already
void PlaceAtNodes(const std::vector<Residual>& residuals, double snap, CcgInputGrid& grid);

}  // namespace korvel
