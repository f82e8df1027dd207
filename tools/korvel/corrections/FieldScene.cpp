#include "tools/korvel/corrections/FieldScene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <set>

#include "korvelfile/corrections/LmvTriadFile.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/GridShape.h"
#include "tools/korvel/corrections/ModelUnits.h"

namespace {

using korvel::CountText;
using korvel::FieldScene;
using korvel::GridShape;
using korvel::ModelExtent;
using korvel::ModelUnits;
using korvel::NumberText;
using korvel::ValueRange;

constexpr double kEarthRadius = 6378137.0;
constexpr double kFarthest = 1e9;  // metres from the origin
constexpr int kMostArrows = 26;    // along the longer side of a map
constexpr int kMostColours = 800;
constexpr int kMostTriangles = 20000;

// Lays a model on a plane: metres as they are, or latitude and longitude with the length of a
// degree that they have in the middle.
class Plane {
 public:
  Plane(bool isGeographic, const ModelExtent& extent)
      : metres_(isGeographic ? kEarthRadius : 1.0),
        narrowing_(isGeographic ? std::max(0.1, std::cos((extent.northMin + extent.northMax) / 2.0))
                                : 1.0) {}

  Vector Of(double north, double east) const {
    return {east * metres_ * narrowing_, north * metres_};
  }
  korvel::PlotAxes Axes(const ModelUnits& units) const {
    if (!units.IsGeographic()) return {};
    const double unit = units.ToModel(1.0) * metres_;
    return {{"lon " + units.Name(), unit * narrowing_}, {"lat " + units.Name(), unit}};
  }

 private:
  double metres_;
  double narrowing_;
};

std::vector<Vector> Corners(const ModelExtent& extent, const Plane& plane) {
  return {plane.Of(extent.northMin, extent.eastMin), plane.Of(extent.northMax, extent.eastMax)};
}

std::string RangeText(const ValueRange& range, int decimals) {
  if (range.count == 0) return "none";
  return NumberText(range.least, decimals) + " to " + NumberText(range.most, decimals);
}

// Every how many nodes one is shown, so that at most `most` are along the longer side.
int StepFor(const GridShape& shape, int most) {
  return (std::max(shape.rows, shape.columns) - 1) / most + 1;
}

// Takes what a plot shows out of the rows of a grid.
class GridScene {
 public:
  GridScene(const GridShape& shape, const korvel::AngleUnit& angles)
      : shape_(shape),
        units_(shape.isGeographic, angles),
        plane_(shape.isGeographic, shape.Extent()),
        arrowStep_(StepFor(shape, kMostArrows)),
        colourStep_(StepFor(shape, kMostColours)) {
    if (!HasHeight()) return;
    colours_.rows = (shape.rows - 1) / colourStep_ + 1;
    colours_.columns = (shape.columns - 1) / colourStep_ + 1;
    colours_.values.assign(
        static_cast<std::size_t>(colours_.rows) * static_cast<std::size_t>(colours_.columns),
        std::numeric_limits<float>::quiet_NaN());
  }

  void AddRow(int row, const std::vector<float>& values) {
    for (int column = 0; column < shape_.columns; ++column) {
      const float* node = &values[static_cast<std::size_t>(column) * ValueCount()];
      if (std::any_of(node, node + ValueCount(), [](float v) { return std::isnan(v); })) {
        ++missing_;
        continue;
      }
      if (shape_.isPlaneFirst) AddPlane(row, column, node);
      if (HasHeight()) AddHeight(row, column, node[ValueCount() - 1]);
    }
  }

  FieldScene Take(const std::string& name) {
    scene_.axes = plane_.Axes(units_);
    scene_.corners = Corners(shape_.Extent(), plane_);
    scene_.spacing = arrowStep_ * plane_.Of(shape_.northSpacing, 0.0).y;
    AddFacts(name);
    if (height_.count > 0) AddColours(name);
    return std::move(scene_);
  }

 private:
  std::size_t ValueCount() const { return static_cast<std::size_t>(shape_.values); }
  bool HasHeight() const { return shape_.values != 2; }

  void AddPlane(int row, int column, const float* node) {
    north_.Add(units_.FromModel(static_cast<double>(node[0])) * units_.CorrectionScale());
    east_.Add(units_.FromModel(static_cast<double>(node[1])) * units_.CorrectionScale());
    const int half = arrowStep_ / 2;
    if (row % arrowStep_ != half || column % arrowStep_ != half) return;
    scene_.arrows.push_back(
        {plane_.Of(shape_.NorthOf(row), shape_.EastOf(column)),
         plane_.Of(static_cast<double>(node[0]), static_cast<double>(node[1]))});
  }
  void AddHeight(int row, int column, float height) {
    height_.Add(static_cast<double>(height));
    if (row % colourStep_ != 0 || column % colourStep_ != 0) return;
    colours_.values[static_cast<std::size_t>(row / colourStep_) *
                        static_cast<std::size_t>(colours_.columns) +
                    static_cast<std::size_t>(column / colourStep_)] = height;
  }

  void AddFacts(const std::string& heightName) {
    auto& facts = scene_.facts;
    facts.emplace_back("Rows, columns",
                       std::to_string(shape_.rows) + ", " + std::to_string(shape_.columns));
    facts.emplace_back("Spacing", NumberText(units_.FromModel(shape_.northSpacing), 4) + ", " +
                                      NumberText(units_.FromModel(shape_.eastSpacing), 4) + ' ' +
                                      units_.Name());
    if (missing_ > 0) facts.emplace_back("Nodes without value", std::to_string(missing_));
    if (shape_.isPlaneFirst) {
      const std::string unit = ' ' + units_.CorrectionName();
      facts.emplace_back("dN" + unit, RangeText(north_, 3));
      facts.emplace_back("dE" + unit, RangeText(east_, 3));
    }
    if (HasHeight()) facts.emplace_back(heightName, RangeText(height_, 3));
  }
  void AddColours(const std::string& name) {
    const double n = shape_.northSpacing;
    const double e = shape_.eastSpacing;
    colours_.name = name;
    colours_.northWest = plane_.Of(shape_.northMax + n / 2.0, shape_.eastMin - e / 2.0);
    colours_.southEast = plane_.Of(shape_.northMax - (colours_.rows * colourStep_ - 0.5) * n,
                                   shape_.eastMin + (colours_.columns * colourStep_ - 0.5) * e);
    colours_.least = height_.least;
    colours_.most = height_.most;
    scene_.colours = std::move(colours_);
  }

  const GridShape& shape_;
  ModelUnits units_;
  Plane plane_;
  int arrowStep_;
  int colourStep_;
  FieldScene scene_;
  korvel::ColourField colours_;
  ValueRange north_, east_, height_;
  std::size_t missing_ = 0;
};

FieldScene SceneOfGrid(const std::string& path, const korvel::AngleUnit& angles,
                       const std::function<void(double)>& progress) {
  const GridShape shape = korvel::ReadGridShape(path);
  GridScene grid(shape, angles);
  VisitRows(shape, [&](int row, const std::vector<float>& values) {
    grid.AddRow(row, values);
    progress(static_cast<double>(row) / shape.rows);
  });
  const bool isGeoid = korvel::FindModelKind(path) == korvel::ModelKind::GeoidGrid;
  FieldScene scene = grid.Take(isGeoid ? "Height m" : "dH m");
  scene.title = isGeoid ? "Geoid grid" : "Correction grid";
  return scene;
}

// The edges of all triangles, each once; of very many only those on the rim.
void AddEdges(const LmvTriadFile& network, FieldScene& scene) {
  const bool areMany = network.GetNumTriangles() > kMostTriangles;
  if (areMany) scene.note = "only the rim is drawn of so many triangles";
  for (int t = 0; t < network.GetNumTriangles(); ++t) {
    const auto& triangle = network.GetTriangles()[static_cast<std::size_t>(t)];
    for (std::size_t i = 0; i < 3; ++i) {
      const int neighbour = triangle.neighbour[i];
      if (neighbour >= 0 && (areMany || neighbour < t)) continue;
      const auto vertex = [&](std::size_t v) {
        return network.GetPoints()[static_cast<std::size_t>(triangle.vertex[v])];
      };
      scene.edges.emplace_back(vertex(i), vertex((i + 1) % 3));
    }
  }
}

// One arrow in each cell of a coarse raster.
void AddNetworkArrows(const LmvTriadFile& network, const ModelExtent& extent, FieldScene& scene) {
  const double size = std::max(extent.northMax - extent.northMin, extent.eastMax - extent.eastMin);
  const double count = std::min(std::sqrt(network.GetNumPoints()), 1.0 * kMostArrows);
  scene.spacing = size > 0.0 ? size / count : 1.0;
  std::set<std::pair<double, double>> taken;
  for (const auto& p : network.GetPoints()) {
    const bool isKnown = korvel::IsKnown(p.x) && korvel::IsKnown(p.y) && std::isfinite(p.value.x) &&
                         std::isfinite(p.value.y);
    if (isKnown &&
        taken.emplace(std::floor(p.x / scene.spacing), std::floor(p.y / scene.spacing)).second)
      scene.arrows.push_back({p, {static_cast<double>(p.value.x), static_cast<double>(p.value.y)}});
  }
}

FieldScene SceneOfNetwork(const std::string& path) {
  const auto network = korvel::OpenTriad(path);
  const ModelExtent extent = korvel::ExtentOf(*network);
  if (network->GetNumPoints() == 0) throw korvel::InputError(path + ": holds no points");
  FieldScene scene;
  scene.title = "Network";
  scene.corners = Corners(extent, Plane(false, extent));
  AddEdges(*network, scene);
  AddNetworkArrows(*network, extent, scene);
  ValueRange north, east;
  for (const auto& point : network->GetPoints()) {
    north.Add(korvel::DecimalOf(point.value.y));
    east.Add(korvel::DecimalOf(point.value.x));
  }
  scene.facts = {{"Points", std::to_string(network->GetNumPoints())},
                 {"Triangles", std::to_string(network->GetNumTriangles())},
                 {"dN m", RangeText(north, 3)},
                 {"dE m", RangeText(east, 3)}};
  return scene;
}

}  // namespace

namespace korvel {

double FieldScene::LongestCorrection() const {
  double longest = 0.0;
  for (const Arrow& arrow : arrows) longest = std::max(longest, arrow.correction.GetLength());
  return longest;
}

FieldScene ReadFieldScene(const std::string& path, const AngleUnit& angles,
                          const std::function<void(double)>& progress) {
  FieldScene scene = FindModelKind(path) == ModelKind::Network
                         ? SceneOfNetwork(path)
                         : SceneOfGrid(path, angles, progress);
  for (const Vector& corner : scene.corners)
    if (!(std::hypot(corner.x, corner.y) < kFarthest))
      throw InputError(path + ": lies too far out to be drawn");
  scene.source = std::filesystem::path(path).filename().string();
  return scene;
}

}  // namespace korvel
