#include "tools/korvel/alignments/RoadDiagrams.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/alignments/Elements.h"
#include "tools/korvel/alignments/LinePlan.h"

namespace {

using korvel::Diagram;
using korvel::Road;

constexpr int kPlacesOnCurve = 16;
constexpr double kPerKilometre = 1000.0;

double Curvature(double radius) { return radius == 0.0 ? 0.0 : kPerKilometre / radius; }

Diagram CurvatureDiagram(const Road& road) {
  Diagram diagram{"Curvature 1/km, right is positive", {{"", korvel::kInk, {{}}}}, {}, {}};
  std::vector<Vector>& curve = diagram.curves.front().pieces.front();
  for (const TLin& e : korvel::ElementsOf(road.lin)) {
    const bool isArc = korvel::IsArc(e);
    const double end = e.GetSection() + e.GetLength();
    curve.emplace_back(e.GetSection(), Curvature(e.GetRadius()));
    curve.emplace_back(end, Curvature(isArc ? e.GetRadius() : e.GetERadius()));
    diagram.limits.push_back(e.GetSection());
    const std::string figure = korvel::FigureOf(e);
    if (!figure.empty()) diagram.notes.push_back({0.5 * (e.GetSection() + end), figure});
  }
  return diagram;
}

double HeightAt(const Road& road, double chainage) {
  try {
    return road.line->PointAt(chainage, 0.0).Z;
  } catch (const Model::LineException&) {
    return kUndefined;
  }
}

// Ends the last piece of a curve, unless it is empty.
void BreakCurve(Diagram::Curve& curve) {
  if (!curve.pieces.back().empty()) curve.pieces.emplace_back();
}

void AddPlace(Diagram::Curve& curve, double chainage, double value) {
  if (korvel::IsKnown(value)) {
    curve.pieces.back().emplace_back(chainage, value);
  } else {
    BreakCurve(curve);
  }
}

std::string FigureOf(const TPrf& e) {
  if (e.GetRadius() != 0.0) return korvel::FigureText("R", e.GetRadius());
  return korvel::NumberText(e.GetSlope() * korvel::kPercent, 2) + " %";
}

Diagram HeightDiagram(const Road& road) {
  Diagram diagram{"Profile m", {{"", korvel::kInk, {{}}}}, {}, {}};
  for (const TPrf& e : korvel::ElementsOf(road.prf)) {
    diagram.limits.push_back(e.GetSection());
    // What reaches beyond the line isn't drawn.
    const int steps = e.GetRadius() == 0.0 ? 1 : kPlacesOnCurve;
    for (int i = 0; i <= steps; ++i) {
      const double chainage = std::clamp(e.GetSection() + e.GetLength() * i / steps,
                                         road.line->GetStartArc(), road.line->GetEndArc());
      AddPlace(diagram.curves.front(), chainage, HeightAt(road, chainage));
    }
    if (e.GetLength() > 0.0)
      diagram.notes.push_back({e.GetSection() + 0.5 * e.GetLength(), FigureOf(e)});
  }
  return diagram;
}

Diagram CrossfallDiagram(const Road& road) {
  Diagram diagram{"Crossfall %, rising away from the line", {}, {}, {}};
  diagram.curves = {{"left", korvel::kStationColour, {{}}}, {"right", korvel::kKnownColour, {{}}}};
  for (const korvel::CamberPoint& p : korvel::ElementsOf(road.skv)) {
    diagram.limits.push_back(p.chainage);
    AddPlace(diagram.curves[0], p.chainage, p.slope1 * korvel::kPercent);
    AddPlace(diagram.curves[1], p.chainage, p.slope2 * korvel::kPercent);
  }
  return diagram;
}

}  // namespace

namespace korvel {

std::string FigureOf(const TLin& element) {
  if (IsClothoid(element)) return FigureText("A", element.GetParameter());
  return IsArc(element) ? FigureText("R", element.GetRadius()) : std::string();
}

std::vector<Diagram> DiagramsOf(const Road& road) {
  std::vector<Diagram> diagrams;
  if (road.hasProfile) diagrams.push_back(HeightDiagram(road));
  diagrams.push_back(CurvatureDiagram(road));
  if (road.hasCamber) diagrams.push_back(CrossfallDiagram(road));
  return diagrams;
}

}  // namespace korvel
