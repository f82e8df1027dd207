#include "tools/korvel/alignments/RoadColumns.h"

#include <cstddef>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/alignments/Elements.h"

namespace {

using korvel::Road;

std::string ElementName(const Road& road, double chainage) {
  try {
    const int index = road.line->GetHorizontalAlignment()->GetElements()->IndexAt(chainage);
    return road.lin.GetElement(static_cast<std::size_t>(index))->GetElemNo();
  } catch (const Model::LineException&) {
    return "";
  }
}

double Crossfall(const Road& road, double chainage, double offset) {
  double left = 0.0;
  double right = 0.0;
  if (!road.line->CrossfallAt(chainage, left, right)) return kUndefined;
  return offset < 0.0 ? left : right;
}

double LineHeight(const Road& road, double chainage) {
  try {
    return road.line->PointAt(chainage, 0.0).Z;
  } catch (const Model::LineException&) {
    return kUndefined;
  }
}

}  // namespace

namespace korvel {

Json AboutRoad(const RoadPaths& paths) {
  Json about{{"line", JsonText(paths.line)}, {"unit", "m"}};
  if (!paths.profile.empty()) about["profile"] = JsonText(paths.profile);
  if (!paths.camber.empty()) about["camber"] = JsonText(paths.camber);
  return about;
}

double KnownOrUndefined(double value) { return IsKnown(value) ? value : kUndefined; }

double HeightAbove(double height, double base) {
  return IsKnown(height) && IsKnown(base) ? height - base : kUndefined;
}

void AddRoadColumns(const Road& road, std::vector<ResultColumn>& columns) {
  columns.push_back({"element", "element"});
  if (road.hasProfile) columns.push_back({"line_height", "line height m", kMetreDecimals});
  if (road.hasCamber) columns.push_back({"crossfall_percent", "crossfall %", kMetreDecimals});
  if (road.hasProfile && road.hasCamber)
    columns.push_back({"surface_height", "surface height m", kMetreDecimals});
}

void AddRoadCells(const Road& road, double chainage, double offset,
                  std::vector<ResultCell>& cells) {
  cells.emplace_back(ElementName(road, chainage));
  if (road.hasProfile) cells.emplace_back(KnownOrUndefined(LineHeight(road, chainage)));
  if (road.hasCamber) {
    const double crossfall = Crossfall(road, chainage, offset);
    cells.emplace_back(IsUndefined(crossfall) ? crossfall : crossfall * kPercent);
  }
  if (road.hasProfile && road.hasCamber)
    cells.emplace_back(KnownOrUndefined(road.line->SurfaceHeightAt(chainage, offset)));
}

}  // namespace korvel
