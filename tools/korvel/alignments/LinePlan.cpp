#include "tools/korvel/alignments/LinePlan.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotColumn.h"
#include "tools/korvel/PlotLabels.h"
#include "tools/korvel/PlotMap.h"

namespace {

using korvel::PlanElement;
using korvel::PlotColumn;
using korvel::PlotMap;
using korvel::PlotPen;

constexpr double kFarthest = 1e9;       // metres; beyond it a map has no digits left
constexpr double kTurnOfChord = 0.05;   // radians that a chord of a curve covers
constexpr double kMostChords = 256.0;   // of an element
constexpr double kLargestStep = 110.0;  // points between numbers along the line
constexpr double kMostNumbers = 2000.0;
constexpr double kLimitHalf = 6.0;  // points of a limit to each side of the line
constexpr double kTickHalf = 3.0;
constexpr double kLabelGap = 7.0;
const korvel::TextStyle kFigureStyle{7.5, korvel::kInk, true, korvel::TextAlign::Left, true};
const korvel::TextStyle kNumberStyle{6.5, korvel::kFaintInk, false, korvel::TextAlign::Left, true};

int ChordsOf(const PlanElement& e) {
  return static_cast<int>(
      std::clamp(std::ceil(e.length * e.curvature / kTurnOfChord), 1.0, kMostChords));
}

double StepOf(const PlotMap& map) {
  return korvel::RoundLength(kLargestStep / map.GetPointsPerMetre());
}

}  // namespace

namespace korvel {

std::string FigureText(const char* name, double value) {
  constexpr int kDigits = 6;
  return name + (' ' + GeneralText(std::fabs(value), kDigits));
}

/// Draws one plan.
class LinePlan::Drawing {
 public:
  Drawing(const LinePlan& plan, const PlotPen& pen, const PlotMap& map)
      : plan_(plan), pen_(pen), map_(map), labels_(map.GetCorner(), map.GetSize()) {}

  int Draw() {
    DrawGrid(pen_, map_, plan_.line_.axes);
    pen_.Clipped(map_.GetCorner(), map_.GetSize(), [&] {
      DrawLine();
      const std::vector<Label> numbers = DrawTicks();
      const std::vector<Label> figures = DrawLimits();
      for (const Label& label : numbers) DrawLabel(label, kNumberStyle);
      for (const Label& label : figures) DrawLabel(label, kFigureStyle);
    });
    pen_.Box(map_.GetCorner(), map_.GetSize(), kFaintInk, false);
    return unlabelled_;
  }

 private:
  struct Label {
    Vector at;
    std::string text;
  };

  void DrawLine() {
    for (std::size_t e = 0; e < plan_.places_.size(); ++e) {
      const std::vector<Vector>& places = plan_.places_[e];
      for (std::size_t i = 1; i < places.size(); ++i) {
        const Vector from = map_.ToPage(places[i - 1]);
        const Vector to = map_.ToPage(places[i]);
        pen_.Line(from, to, plan_.line_.elements[e].colour, 1.5);
        labels_.AddLine(from, to);
      }
    }
  }

  // A stroke across the line; false where it has no place.
  bool DrawAcross(double arc, double half, double width) {
    const auto place = plan_.line_.placeAt(arc);
    if (!place) return false;
    const Vector at = map_.ToPage(place->at);
    const Vector across(half * std::sin(place->direction), half * std::cos(place->direction));
    pen_.Line(at - across, at + across, kInk, width);
    labels_.AddSign(at, half);
    return true;
  }

  void AddLabel(double arc, const std::string& text, std::vector<Label>& labels) const {
    const auto place = plan_.line_.placeAt(arc);
    if (place && !text.empty()) labels.push_back({map_.ToPage(place->at), text});
  }

  // Limits that crowd are short, so that the line shows between them.
  double LimitHalf() const {
    const auto [start, end] = plan_.line_.range;
    const double onPage = (end - start) * map_.GetPointsPerMetre();
    const auto count = static_cast<double>(plan_.line_.elements.size());
    return std::clamp(0.4 * onPage / count, kTickHalf / 2.0, kLimitHalf);
  }

  std::vector<Label> DrawLimits() {
    const double half = LimitHalf();
    std::vector<Label> figures;
    for (const PlanElement& element : plan_.line_.elements) {
      DrawAcross(element.arc, half, 0.9);
      AddLabel(element.arc + 0.5 * element.length, element.figure, figures);
    }
    return figures;
  }

  std::vector<Label> DrawTicks() {
    std::vector<Label> numbers;
    const auto [start, end] = plan_.line_.range;
    const double step = StepOf(map_);
    if (!((end - start) / step <= kMostNumbers)) return numbers;
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    const double first = std::ceil(start / step);
    for (int i = 0; (first + i) * step <= end; ++i) {
      const double arc = (first + i) * step;
      if (DrawAcross(arc, kTickHalf, 0.5)) AddLabel(arc, NumberText(arc, decimals), numbers);
    }
    return numbers;
  }

  void DrawLabel(const Label& label, const TextStyle& style) {
    const Vector size(pen_.TextWidth(label.text, style), style.size);
    const auto place = labels_.Place(label.at, size, kLabelGap, false);
    if (!place) {
      ++unlabelled_;
      return;
    }
    pen_.Text(label.text, *place, style);
  }

  const LinePlan& plan_;
  const PlotPen& pen_;
  const PlotMap& map_;
  PlotLabels labels_;
  int unlabelled_ = 0;
};

LinePlan::LinePlan(const PlanLine& line) : line_(line) {
  for (const PlanElement& element : line.elements) {
    places_.emplace_back();
    const int chords = ChordsOf(element);
    for (int i = 0; i <= chords; ++i) {
      const auto place = line.placeAt(element.arc + element.length * i / chords);
      if (!place) continue;
      if (!(std::fabs(place->at.x) <= kFarthest && std::fabs(place->at.y) <= kFarthest))
        throw InputError("the line lies too far away to be drawn");
      places_.back().push_back(place->at);
    }
  }
  if (Places().empty()) throw InputError("the line has no place to be drawn");
}

std::vector<Vector> LinePlan::Places() const {
  std::vector<Vector> all;
  for (const auto& places : places_) all.insert(all.end(), places.begin(), places.end());
  return all;
}

int LinePlan::Draw(const PlotPen& pen, const PlotMap& map) const {
  return Drawing(*this, pen, map).Draw();
}

void AddPlanLegend(PlotColumn& panel, const PlotPen& pen, const PlotMap& map, bool hasClothoids,
                   const std::string& arcs) {
  const auto addKind = [&](const std::string& name, const Colour& colour) {
    panel.Sign(name, [&](const Vector& at) {
      const Vector half(PlotColumn::kSignWidth / 2.0, 0.0);
      pen.Line(at - half, at + half, colour, 1.5);
    });
  };
  const auto addStroke = [&](const std::string& name, double half, double width) {
    panel.Sign(name, [&](const Vector& at) {
      pen.Line(at - Vector(0.0, half), at + Vector(0.0, half), kInk, width);
    });
  };
  panel.Head("Legend");
  addKind("straight", kStraightColour);
  addKind("arc, R radius m", kArcColour);
  if (hasClothoids) addKind("clothoid, A parameter m", kClothoidColour);
  addStroke("limit of elements", kLimitHalf, 0.9);
  addStroke(arcs + ", every " + LengthText(StepOf(map)), kTickHalf, 0.5);
}

void AddPlanScale(PlotColumn& panel, const PlotMap& map, int unlabelled) {
  panel.Head("Scale");
  panel.MapScale(map);
  if (unlabelled > 0)
    panel.Small(CountText(static_cast<std::size_t>(unlabelled), "text") + " found no room");
}

}  // namespace korvel
