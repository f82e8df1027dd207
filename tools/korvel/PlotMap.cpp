#include "tools/korvel/PlotMap.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "korvelfile/outside/base/NumberText.h"

namespace {

constexpr double kShortSide = 595.276;  // A4
constexpr double kLongSide = 841.890;
constexpr double kMetresPerPoint = 0.0254 / 72.0;
constexpr double kMargin = 24.0;
constexpr double kLabelMargin = 22.0;  // left of and below the map, for the grid's numbers
constexpr double kPanelWidth = 186.0;
constexpr double kPanelGap = 14.0;
constexpr double kInset = 46.0;           // room within the frame for names and vectors
constexpr double kSmallestExtent = 1e-3;  // metres

Vector MapSize(const Vector& page) {
  return {page.x - 2.0 * kMargin - kLabelMargin - kPanelGap - kPanelWidth,
          page.y - 2.0 * kMargin - kLabelMargin};
}

// Points per metre at which `extent` fills the map of a page.
double FullScale(const Vector& page, const Vector& extent) {
  const Vector room = MapSize(page) - Vector(2.0 * kInset, 2.0 * kInset);
  return std::min(room.x / std::max(extent.x, kSmallestExtent),
                  room.y / std::max(extent.y, kSmallestExtent));
}

// The next round denominator of a scale, not below `least`.
double RoundDenominator(double least) {
  constexpr std::array kRound{1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0};
  const double power = std::pow(10.0, std::floor(std::log10(least)));
  const auto round = std::find_if(kRound.begin(), kRound.end(),
                                  [&](double r) { return r * power >= least * (1.0 - 1e-12); });
  return (round == kRound.end() ? kRound.back() : *round) * power;
}

}  // namespace

namespace korvel {

double RoundLength(double limit) {
  const double power = std::pow(10.0, std::floor(std::log10(limit)));
  for (const double r : {5.0, 2.0})
    if (r * power <= limit) return r * power;
  return power;
}

PlotMap::PlotMap(const std::vector<Vector>& places) {
  Vector least = places.front();
  Vector most = places.front();
  for (const Vector& p : places) {
    least = {std::min(least.x, p.x), std::min(least.y, p.y)};
    most = {std::max(most.x, p.x), std::max(most.y, p.y)};
  }
  centre_ = least + (most - least) * 0.5;
  const Vector oblong(kLongSide, kShortSide);
  const Vector upright(kShortSide, kLongSide);
  const Vector extent = most - least;
  page_ = FullScale(upright, extent) > FullScale(oblong, extent) ? upright : oblong;
  corner_ = {kMargin + kLabelMargin, kMargin};
  size_ = MapSize(page_);
  denominator_ = RoundDenominator(1.0 / (FullScale(page_, extent) * kMetresPerPoint));
  scale_ = 1.0 / (denominator_ * kMetresPerPoint);
}

double PlotMap::GetPanelLeft() const { return page_.x - kMargin - kPanelWidth; }

double PlotMap::GetPanelWidth() const { return kPanelWidth; }

Vector PlotMap::ToPage(const Vector& ground) const {
  const Vector middle = corner_ + size_ * 0.5;
  const Vector offset = (ground - centre_) * scale_;
  return middle + Vector(offset.x, -offset.y);
}

Vector PlotMap::ToGround(const Vector& page) const {
  const Vector offset = page - (corner_ + size_ * 0.5);
  return centre_ + Vector(offset.x, -offset.y) * (1.0 / scale_);
}

std::string PlotMap::GetScaleText() const {
  constexpr int kDigits = 12;
  return denominator_ >= 1.0 ? "1:" + GeneralText(denominator_, kDigits)
                             : GeneralText(1.0 / denominator_, 3) + ":1";
}

}  // namespace korvel
