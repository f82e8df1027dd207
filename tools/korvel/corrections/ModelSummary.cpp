#include "tools/korvel/corrections/ModelSummary.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/corrections/CcgNames.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/GridShape.h"
#include "tools/korvel/corrections/ModelUnits.h"

namespace {

using korvel::GridShape;
using korvel::Json;
using korvel::ModelExtent;
using korvel::ModelKind;
using korvel::ModelUnits;
using korvel::ValueRange;

Json Begin(const std::string& path, const char* format, const ModelUnits& units) {
  return {{"file", korvel::JsonText(path)},
          {"format", format},
          {"axes", units.IsGeographic() ? "latitude, longitude" : "north, east"},
          {"unit", units.Name()}};
}

void AddExtent(const ModelExtent& extent, const ModelUnits& units, Json& summary) {
  const auto range = [&](double least, double most) {
    return Json{{"min", korvel::JsonNumber(units.FromModel(least))},
                {"max", korvel::JsonNumber(units.FromModel(most))}};
  };
  summary["north"] = range(extent.northMin, extent.northMax);
  summary["east"] = range(extent.eastMin, extent.eastMax);
}

// Counts of nodes, and the range of each value of those that have all.
class NodeStatistics {
 public:
  explicit NodeStatistics(const GridShape& shape)
      : shape_(shape), ranges_(static_cast<std::size_t>(shape.values)) {
    VisitRows(shape, [&](int, const std::vector<float>& values) { AddRow(values); });
  }

  void AddTo(Json& summary, const std::vector<std::string>& names, const ModelUnits& units) const {
    summary["nodes"] = shape_.NodeCount();
    summary["nodes_with_value"] = count_;
    summary["nodes_without_value"] = shape_.NodeCount() - count_;
    for (std::size_t i = 0; i < names.size(); ++i) {
      const bool isPlane = shape_.isPlaneFirst && i < 2;
      const auto number = [&](double value) {
        const double decimal = korvel::DecimalOf(static_cast<float>(value));
        return count_ == 0 ? Json(nullptr)
                           : korvel::JsonNumber(isPlane ? units.FromModel(decimal) : decimal);
      };
      summary[names[i]] = {{"min", number(ranges_[i].least)}, {"max", number(ranges_[i].most)}};
    }
  }

 private:
  void AddRow(const std::vector<float>& values) {
    for (auto node = values.begin(); node != values.end(); node += shape_.values) {
      const auto end = node + shape_.values;
      if (std::any_of(node, end, [](float v) { return std::isnan(v); })) continue;
      ++count_;
      for (std::size_t i = 0; i < ranges_.size(); ++i)
        ranges_[i].Add(static_cast<double>(node[static_cast<std::ptrdiff_t>(i)]));
    }
  }

  const GridShape& shape_;
  std::vector<ValueRange> ranges_;
  std::int64_t count_ = 0;
};

void AddRaster(const GridShape& shape, const std::vector<std::string>& names,
               const ModelUnits& units, Json& summary) {
  AddExtent(shape.Extent(), units, summary);
  summary["north_spacing"] = units.FromModel(shape.northSpacing);
  summary["east_spacing"] = units.FromModel(shape.eastSpacing);
  summary["rows"] = shape.rows;
  summary["columns"] = shape.columns;
  NodeStatistics(shape).AddTo(summary, names, units);
}

std::vector<std::string> ComponentNames(const CcgFileInfo& info) {
  std::vector<std::string> names;
  if (info.HasXYComponents()) names = {"d_north", "d_east"};
  if (info.HasZComponent()) names.emplace_back("d_height");
  return names;
}

Json SummarizeCcg(const std::string& path, const korvel::AngleUnit& angles) {
  const GridShape shape = korvel::ReadGridShape(path);
  CcgFile file;
  file.OpenFile(Widen(path));
  const CcgFileInfo& info = file.GetFileInfo();
  const ModelUnits units(shape.isGeographic, angles);
  Json summary = Begin(path, "correction grid", units);
  summary["version"] = static_cast<int>(info.formatVersion);
  summary["type"] = korvel::CorrectionTypeName(info.correctionType);
  if (info.HasXYComponents())
    summary["plane_interpolation"] = korvel::InterpolationName(info.planeInterpolation);
  if (info.HasZComponent())
    summary["height_interpolation"] = korvel::InterpolationName(info.heightInterpolation);
  AddRaster(shape, ComponentNames(info), units, summary);
  return summary;
}

Json SummarizeGeoid(const std::string& path, const korvel::AngleUnit& angles) {
  const GridShape shape = korvel::ReadGridShape(path);
  const ModelUnits units(shape.isGeographic, angles);
  Json summary = Begin(path, "geoid grid", units);
  summary["interpolation"] = korvel::InterpolationName(Bilinear);
  AddRaster(shape, {"geoid_height"}, units, summary);
  return summary;
}

std::size_t RimEdgeCount(const LmvTriadFile& network) {
  std::size_t count = 0;
  for (const auto& triangle : network.GetTriangles())
    count += static_cast<std::size_t>(
        std::count(triangle.neighbour.begin(), triangle.neighbour.end(), -1));
  return count;
}

Json SummarizeNetwork(const std::string& path, const korvel::AngleUnit& angles) {
  const auto network = korvel::OpenTriad(path);
  Json summary = Begin(path, "triangulated network", ModelUnits(false, angles));
  ValueRange north, east, dNorth, dEast;
  std::size_t unused = 0;
  for (const auto& point : network->GetPoints()) {
    north.Add(point.y);
    east.Add(point.x);
    dNorth.Add(korvel::DecimalOf(point.value.y));
    dEast.Add(korvel::DecimalOf(point.value.x));
    if (!point.linked) ++unused;
  }
  summary.update({{"points", network->GetNumPoints()},
                  {"points_without_triangle", unused},
                  {"triangles", network->GetNumTriangles()},
                  {"rim_edges", RimEdgeCount(*network)},
                  {"north", north.ToJson()},
                  {"east", east.ToJson()},
                  {"d_north", dNorth.ToJson()},
                  {"d_east", dEast.ToJson()}});
  return summary;
}

}  // namespace

korvel::Json korvel::SummarizeModel(const std::string& path, const AngleUnit& angles) {
  switch (FindModelKind(path)) {
    case ModelKind::CorrectionGrid:
      return SummarizeCcg(path, angles);
    case ModelKind::GeoidGrid:
      return SummarizeGeoid(path, angles);
    case ModelKind::Network:
      break;
  }
  return SummarizeNetwork(path, angles);
}
