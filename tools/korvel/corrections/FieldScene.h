#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "korvelfile/outside/base/Vector.h"
#include "tools/korvel/AngleUnit.h"
#include "tools/korvel/PlotGrid.h"

namespace korvel {

/// Values on a raster, to be drawn as colours.
struct ColourField {
  std::string name;  ///< of the values, with their unit
  Vector northWest;  ///< outer corner of the raster's first cell
  Vector southEast;  ///< outer corner of its last cell
  int rows = 0;
  int columns = 0;
  std::vector<float> values;  ///< row by row from the north, each from the west; NaN for none
  double least = 0.0;
  double most = 0.0;
};

/// What a plot of a correction model shows. Places are (E, N) in metres; those of a model in
/// latitude and longitude are laid on a plane that is true to scale in its middle.
struct FieldScene {
  /// A correction in the plane.
  struct Arrow {
    Vector place;
    Vector correction;  ///< (E, N), metres
  };

  std::string title;
  std::string source;  ///< name of the file
  std::vector<std::pair<std::string, std::string>> facts;
  PlotAxes axes;
  std::vector<Vector> corners;  ///< of what the map must show
  std::vector<Arrow> arrows;
  double spacing = 0.0;  ///< between arrows, metres
  std::optional<ColourField> colours;
  std::vector<std::pair<Vector, Vector>> edges;  ///< of triangles
  std::string note;                              ///< on what was left out

  /// Length of the longest correction, metres.
  double LongestCorrection() const;
};

/// The scene of a model file. Of a large one as many arrows, colours and edges are taken as a page
/// can show.
/// @param angles   unit of latitude and longitude
/// @param progress told how much is done, 0 to 1
/// @throws InputError if the file can't be read or is no model
FieldScene ReadFieldScene(const std::string& path, const AngleUnit& angles,
                          const std::function<void(double)>& progress);

}  // namespace korvel
