#include "tools/korvel/alignments/Diagram.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotMap.h"

namespace {

using korvel::ChainageRange;
using korvel::Diagram;
using korvel::PlotPen;
using korvel::TextAlign;
using korvel::TextStyle;

constexpr double kLeftMargin = 46.0;
constexpr double kRightMargin = 24.0;
constexpr double kTitleRoom = 26.0;
constexpr double kFootRoom = 22.0;
constexpr double kLargestStep = 110.0;  // points between chainages
constexpr double kShare = 0.08;         // of the box, that stays free above and below the curves
constexpr double kLeastExtent = 1e-6;
constexpr double kLeastLimitGap = 5.0;  // points between limits, on average
constexpr int kLevels = 4;              // between numbers of the upright axis
const TextStyle kTitleStyle{8.5, korvel::kInk, true};
const TextStyle kNumberStyle{7.0, korvel::kFaintInk, false, TextAlign::Centre};
const TextStyle kLevelStyle{7.0, korvel::kFaintInk, false, TextAlign::Right};
const TextStyle kNoteStyle{6.5, korvel::kInk, false, TextAlign::Centre};

/// The numbers at an axis: multiples of a round step.
struct Steps {
  double step;
  double first;
  int count;
  int decimals;

  Steps(double least, double most, double largestStep)
      : step(korvel::RoundLength(largestStep)),
        first(std::ceil(least / step)),
        count(static_cast<int>(std::floor(most / step) - first) + 1),
        decimals(std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)))) {}
  double NumberOf(int i) const { return (first + i) * step; }
};

/// Draws one diagram.
class DiagramDrawing {
 public:
  DiagramDrawing(const PlotPen& pen, double top, double width, const ChainageRange& range,
                 const Diagram& diagram)
      : pen_(pen),
        diagram_(diagram),
        range_(range),
        corner_(kLeftMargin, top + kTitleRoom),
        size_(width - kLeftMargin - kRightMargin, korvel::kDiagramHeight - kTitleRoom - kFootRoom) {
    FindValues();
  }

  void Draw() const {
    DrawTitle();
    DrawChainages();
    DrawLevels();
    pen_.Clipped(corner_, size_, [&] {
      DrawLimits();
      DrawCurves();
    });
    DrawNotes();
    pen_.Box(corner_, size_, korvel::kFaintInk, false);
  }

 private:
  void FindValues() {
    low_ = std::numeric_limits<double>::infinity();
    high_ = -low_;
    for (const auto& curve : diagram_.curves)
      for (const auto& piece : curve.pieces)
        for (const Vector& place : piece) {
          low_ = std::min(low_, place.y);
          high_ = std::max(high_, place.y);
        }
    if (!(low_ <= high_)) low_ = high_ = 0.0;
    const double extent =
        std::max({high_ - low_, kLeastExtent, kLeastExtent * std::fabs(low_ + high_)});
    const double middle = 0.5 * (low_ + high_);
    low_ = middle - (0.5 + kShare) * extent;
    high_ = middle + (0.5 + kShare) * extent;
  }

  double X(double chainage) const {
    return corner_.x + (chainage - range_.start) / (range_.end - range_.start) * size_.x;
  }
  double Y(double value) const { return corner_.y + (high_ - value) / (high_ - low_) * size_.y; }

  void DrawTitle() const {
    double left = corner_.x;
    const double base = corner_.y - 13.0;
    pen_.Text(diagram_.title, {left, base}, kTitleStyle);
    left += pen_.TextWidth(diagram_.title, kTitleStyle) + 14.0;
    for (const auto& curve : diagram_.curves) {
      const TextStyle style{7.5, curve.colour, true};
      pen_.Text(curve.name, {left, base}, style);
      left += pen_.TextWidth(curve.name, style) + 10.0;
    }
  }

  void DrawChainages() const {
    const Steps steps(range_.start, range_.end,
                      kLargestStep * (range_.end - range_.start) / size_.x);
    for (int i = 0; i < steps.count; ++i) {
      const double x = X(steps.NumberOf(i));
      pen_.Line({x, corner_.y}, {x, corner_.y + size_.y}, korvel::kGridColour, 0.7);
      pen_.Text(korvel::NumberText(steps.NumberOf(i), steps.decimals),
                {x, corner_.y + size_.y + 10.0}, kNumberStyle);
    }
  }

  void DrawLevels() const {
    const Steps steps(low_, high_, (high_ - low_) / kLevels);
    for (int i = 0; i < steps.count; ++i) {
      const double y = Y(steps.NumberOf(i));
      pen_.Line({corner_.x, y}, {corner_.x + size_.x, y}, korvel::kGridColour, 0.7);
      pen_.Text(korvel::NumberText(steps.NumberOf(i), steps.decimals), {corner_.x - 4.0, y + 2.5},
                kLevelStyle);
    }
  }

  // Limits that crowd would hide the curves.
  void DrawLimits() const {
    if (size_.x < kLeastLimitGap * static_cast<double>(diagram_.limits.size())) return;
    for (const double limit : diagram_.limits)
      pen_.DashedLine({X(limit), corner_.y}, {X(limit), corner_.y + size_.y}, korvel::kFaintInk,
                      0.4);
  }

  void DrawCurves() const {
    for (const auto& curve : diagram_.curves)
      for (const auto& piece : curve.pieces)
        for (std::size_t i = 1; i < piece.size(); ++i)
          pen_.Line({X(piece[i - 1].x), Y(piece[i - 1].y)}, {X(piece[i].x), Y(piece[i].y)},
                    curve.colour, 1.1);
  }

  // From the left on, those that don't run into the one before.
  void DrawNotes() const {
    double end = corner_.x;
    for (const auto& note : diagram_.notes) {
      const double half = 0.5 * pen_.TextWidth(note.text, kNoteStyle);
      const double x = X(note.chainage);
      if (x - half < end || x + half > corner_.x + size_.x) continue;
      pen_.Text(note.text, {x, corner_.y - 3.0}, kNoteStyle);
      end = x + half + 4.0;
    }
  }

  const PlotPen& pen_;
  const Diagram& diagram_;
  ChainageRange range_;
  Vector corner_;
  Vector size_;
  double low_ = 0.0;
  double high_ = 0.0;
};

}  // namespace

void korvel::DrawDiagram(const PlotPen& pen, double top, double width, const ChainageRange& range,
                         const Diagram& diagram) {
  if (range.end > range.start) DiagramDrawing(pen, top, width, range, diagram).Draw();
}
