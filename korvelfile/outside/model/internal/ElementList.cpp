#include "korvelfile/outside/model/internal/ElementList.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/internal/Elements.h"

namespace Model {

namespace {

// Feet whose offsets differ by less are equally near, metres.
constexpr double kEqualOffset = 1e-9;

// The nearest foot so far, along the line.
class Nearest {
 public:
  void Offer(const Foot& foot) {
    const double distance = std::fabs(foot.offset);
    const bool isNearer = distance < distance_ - kEqualOffset;
    const bool isEarlier = distance <= distance_ + kEqualOffset && foot.length < foot_.length;
    if (!isNearer && !isEarlier) return;
    foot_ = foot;
    distance_ = std::min(distance, distance_);
  }

  // Beyond this distance nothing matters.
  double Limit() const { return distance_ + kEqualOffset; }

  bool Get(Foot& foot) const {
    if (!std::isfinite(distance_)) return false;
    foot = foot_;
    return true;
  }

 private:
  Foot foot_;
  double distance_ = std::numeric_limits<double>::infinity();
};

Vector UnitVector(double direction) { return PolarVector(1.0, direction).GetVector(); }

}  // namespace

std::shared_ptr<IHorizontalElement> ElementList::CreateArc(const Coordinate& start,
                                                           const Coordinate& end, double radius,
                                                           double startArc) {
  CircleArc arc;
  if (!arc.Set(ToVector(start), ToVector(end), radius, 0, 0))
    throw LineException("There is no arc of this radius between the points");
  auto shape =
      std::make_shared<ArcShape>(ToVector(start), arc.GetBearing(), radius, arc.GetLength());
  return std::make_shared<ArcElement>(std::move(shape), startArc, radius, radius);
}

std::shared_ptr<IHorizontalElement> ElementList::CreateStraight(const Coordinate& start,
                                                                const Coordinate& end,
                                                                double startArc) {
  const PolarVector chord(ToVector(end) - ToVector(start));
  auto shape = std::make_shared<StraightShape>(ToVector(start), chord.angle, chord.distance);
  return std::make_shared<StraightElement>(std::move(shape), startArc);
}

void ElementList::Append(const std::shared_ptr<IHorizontalElement>& element,
                         bool /*isKeptAsItIs*/) {
  const auto* const own = dynamic_cast<const ShapeHolder*>(element.get());
  if (!own) throw LineException("The element belongs to another line model");
  const std::shared_ptr<const Shape>& shape = own->GetShape();
  entries_.push_back({element, shape, element->GetStartArc(), CornerTo(*shape)});
  tree_ = nullptr;
  ownedTree_ = nullptr;
}

ElementList::Corner ElementList::CornerTo(const Shape& next) const {
  if (entries_.empty()) return {};
  const Shape& last = *entries_.back().shape;
  const Place end = last.PlaceAt(last.GetLength());
  const Place start = next.PlaceAt(0.0);
  return {end.point, UnitVector(end.direction), start.point, UnitVector(start.direction)};
}

double ElementList::GetEndArc() const {
  return entries_.empty() ? 0.0 : entries_.back().startArc + entries_.back().shape->GetLength();
}

// The last element that begins at or before `arc`, if it reaches there.
std::size_t ElementList::FindIndex(double arc) const {
  const auto next =
      std::upper_bound(entries_.begin(), entries_.end(), arc + Shape::kEndTolerance,
                       [](double value, const Entry& entry) { return value < entry.startArc; });
  if (next == entries_.begin() || std::isnan(arc))
    throw LineException("The line begins behind this arc");
  const Entry& found = *(next - 1);
  if (!(arc <= found.startArc + found.shape->GetLength() + kGapTolerance))
    throw LineException("The line has no element at this arc");
  return static_cast<std::size_t>(next - entries_.begin()) - 1;
}

std::shared_ptr<IHorizontalElement> ElementList::ElementAt(double arc) const {
  return entries_[FindIndex(arc)].element;
}

int ElementList::IndexAt(double arc) const { return static_cast<int>(FindIndex(arc)); }

std::shared_ptr<IHorizontalElement> ElementList::GetElement(int index) const {
  if (index < 0 || index >= GetElementCount()) throw LineException("There is no such element");
  return entries_[static_cast<std::size_t>(index)].element;
}

Place ElementList::PlaceAt(double arc) const {
  const Entry& entry = entries_[FindIndex(arc)];
  return entry.shape->PlaceAt(arc - entry.startArc);
}

const ExtentTree& ElementList::GetTree() const {
  if (const ExtentTree* const tree = tree_.load(std::memory_order_acquire)) return *tree;
  const std::lock_guard lock(treeMutex_);
  if (!ownedTree_) {
    std::vector<Rect> extents;
    for (const Entry& entry : entries_) extents.push_back(entry.shape->GetExtent());
    ownedTree_ = std::make_unique<const ExtentTree>(extents);
    tree_.store(ownedTree_.get(), std::memory_order_release);
  }
  return *ownedTree_;
}

bool ElementList::FindNearest(const Vector& point, Foot& foot) const {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return false;
  Nearest nearest;
  const auto visit = [&](std::size_t i) {
    Foot found;
    if (entries_[i].shape->FindFoot(point, found))
      nearest.Offer({entries_[i].startArc + found.length, found.offset});
    if (i > 0 && FindCorner(point, entries_[i], found)) nearest.Offer(found);
    return nearest.Limit();
  };
  GetTree().ForNear(point, nearest.Limit(), visit);
  return nearest.Get(foot);
}

// A point in the outer angle between two elements stands square to neither; the corner is the
// nearest place of both. Tangents that differ by rounding alone leave such an angle too.
bool ElementList::FindCorner(const Vector& point, const Entry& entry, Foot& foot) {
  const auto& [end, out, start, in] = entry.corner;
  if (out.GetScalarProduct(point - end) < 0.0 || in.GetScalarProduct(point - start) > 0.0)
    return false;
  const Vector from = point - start;
  foot = {entry.startArc, std::copysign(from.GetLength(), from.GetCrossProduct(out + in))};
  return true;
}

}  // namespace Model
