#include "korvelfile/outside/model/internal/ElementList.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/internal/ArcShape.h"
#include "korvelfile/outside/model/internal/Elements.h"
#include "korvelfile/outside/model/internal/StraightShape.h"

namespace Model {

namespace {

// Feet whose distances differ by less are equally near, metres.
constexpr double kEqualDistance = 1e-9;

// A gap between two elements that is no longer comes from rounded figures, metres.
constexpr double kGapTolerance = 0.01;

// How far beyond the ends of the line rounded figures may lie, metres.
constexpr double kEndTolerance = 1e-4;

// A point as little beyond an end of the line as rounding may bring it stands beside that end.
// Outwards is along the tangent for a sense of 1, against it for -1.
bool FindBeside(const ShapeEnd& end, double sense, const Vector& point, double& offset) {
  const Vector from = point - end.point;
  const double beyond = sense * end.along.GetScalarProduct(from);
  offset = from.GetCrossProduct(end.along);
  return beyond > 0.0 && beyond <= kEndTolerance;
}

}  // namespace

// The nearest foot so far, along the line.
class ElementList::Nearest {
 public:
  void Offer(const Foot& foot) {
    const double distance = std::fabs(foot.offset);
    const bool isNearer = distance < distance_ - kEqualDistance;
    const bool isEarlier = distance <= distance_ + kEqualDistance && foot.length < foot_.length;
    if (!isNearer && !isEarlier) return;
    foot_ = foot;
    distance_ = std::min(distance, distance_);
  }

  // What is farther doesn't matter.
  double SquareLimit() const {
    const double limit = distance_ + kEqualDistance;
    return limit * limit;
  }

  bool Get(Foot& foot) const {
    foot = foot_;
    return std::isfinite(distance_);
  }

 private:
  Foot foot_;
  double distance_ = std::numeric_limits<double>::infinity();
};

std::shared_ptr<IHorizontalElement> ElementList::CreateArc(const Coordinate& start,
                                                           const Coordinate& end, double radius,
                                                           double startArc) {
  CircleArc arc;
  if (!arc.Set(ToVector(start), ToVector(end), radius, 0, 0))
    throw LineException("There is no arc of this radius between the points");
  auto shape =
      std::make_shared<ArcShape>(Place{ToVector(start), arc.GetBearing()}, radius, arc.GetLength());
  auto element = std::make_shared<ArcElement>(std::move(shape), startArc, radius, radius);
  element->SetEndPoint(ToVector(end));
  return element;
}

std::shared_ptr<IHorizontalElement> ElementList::CreateStraight(const Coordinate& start,
                                                                const Coordinate& end,
                                                                double startArc) {
  const PolarVector chord(ToVector(end) - ToVector(start));
  auto shape = std::make_shared<StraightShape>(Place{ToVector(start), chord.angle}, chord.distance);
  auto element = std::make_shared<StraightElement>(std::move(shape), startArc);
  element->SetEndPoint(ToVector(end));
  return element;
}

void ElementList::Append(const std::shared_ptr<IHorizontalElement>& element,
                         bool /*isKeptAsItIs*/) {
  const auto* const own = dynamic_cast<const ShapeHolder*>(element.get());
  if (!own) throw LineException("The element belongs to another line model");
  const double startArc = element->GetStartArc();
  const double least =
      elements_.empty() ? std::numeric_limits<double>::lowest() : elements_.back()->GetStartArc();
  if (!(startArc >= least) || !std::isfinite(element->GetEndArc()))
    throw LineException("An element begins before the one before it, or nowhere");
  if (own->GetShape()->GetLength() > Shape::kEndTolerance)
    pieces_.push_back({own->GetShape(), startArc, elements_.size()});
  elements_.push_back(element);
  totalLength_ += own->GetShape()->GetLength();
  tree_ = nullptr;
  ownedTree_ = nullptr;
}

double ElementList::GetStartArc() const {
  return elements_.empty() ? 0.0 : elements_.front()->GetStartArc();
}

double ElementList::GetEndArc() const {
  return elements_.empty() ? 0.0 : elements_.back()->GetEndArc();
}

// The last piece that begins at or before `arc`, if it reaches there.
const ElementList::Piece& ElementList::PieceAt(double arc) const {
  if (!(arc >= GetStartArc() - kEndTolerance && arc <= GetEndArc() + kEndTolerance))
    throw LineException("The line doesn't reach this arc");
  const auto next =
      std::upper_bound(pieces_.begin(), pieces_.end(), arc,
                       [](double value, const Piece& piece) { return value < piece.startArc; });
  const auto found = next == pieces_.begin() ? next : next - 1;
  if (found == pieces_.end() || found->startArc - arc > kGapTolerance ||
      arc - found->startArc - found->shape->GetLength() > kGapTolerance)
    throw LineException("The line has no element at this arc");
  return *found;
}

std::shared_ptr<IHorizontalElement> ElementList::ElementAt(double arc) const {
  return elements_[PieceAt(arc).index];
}

int ElementList::IndexAt(double arc) const { return static_cast<int>(PieceAt(arc).index); }

std::shared_ptr<IHorizontalElement> ElementList::GetElement(int index) const {
  if (index < 0 || index >= GetElementCount()) throw LineException("There is no such element");
  return elements_[static_cast<std::size_t>(index)];
}

Place ElementList::PlaceAt(double arc) const {
  const Piece& piece = PieceAt(arc);
  return piece.shape->PlaceAt(arc - piece.startArc);
}

const ExtentTree& ElementList::GetTree() const {
  if (const ExtentTree* const tree = tree_.load(std::memory_order_acquire)) return *tree;
  const std::lock_guard lock(treeMutex_);
  if (!ownedTree_) {
    std::vector<Rect> extents;
    for (const Piece& piece : pieces_) extents.push_back(piece.shape->GetExtent());
    ownedTree_ = std::make_unique<const ExtentTree>(extents);
    tree_.store(ownedTree_.get(), std::memory_order_release);
  }
  return *ownedTree_;
}

bool ElementList::FindNearest(const Vector& point, Foot& foot) const {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return false;
  Nearest nearest;
  GetTree().ForNear(point, [&](std::size_t i) {
    if (!(pieces_[i].shape->GetLeastSquare(point) > nearest.SquareLimit()))
      OfferFeet(point, i, nearest);
    return nearest.SquareLimit();
  });
  return nearest.Get(foot);
}

void ElementList::OfferFeet(const Vector& point, std::size_t i, Nearest& nearest) const {
  const auto& [shape, startArc, index] = pieces_[i];
  Foot found;
  if (shape->FindFoot(point, found)) nearest.Offer({startArc + found.length, found.offset});
  if (FindCorner(point, i, found)) nearest.Offer(found);
  if (i == 0 && FindBeside(shape->GetStart(), -1.0, point, found.offset))
    nearest.Offer({startArc, found.offset});
  if (i + 1 == pieces_.size() && FindBeside(shape->GetEnd(), 1.0, point, found.offset))
    nearest.Offer({startArc + shape->GetLength(), found.offset});
}

// A point in the outer angle between two elements stands square to neither; the corner is the
// nearest place of both. Tangents that differ by rounding alone leave such an angle too. The
// element before the first one is the last, where it ends there.
bool ElementList::FindCorner(const Vector& point, std::size_t i, Foot& foot) const {
  const ShapeEnd& end = pieces_[i > 0 ? i - 1 : pieces_.size() - 1].shape->GetEnd();
  const ShapeEnd& start = pieces_[i].shape->GetStart();
  const Vector from = point - start.point;
  if (start.along.GetScalarProduct(from) > 0.0) return false;
  if (end.along.GetScalarProduct(point - end.point) < 0.0) return false;
  if (!(start.point.GetDistance(end.point) <= kGapTolerance)) return false;
  const double side = from.GetCrossProduct(start.along + end.along);
  foot = {pieces_[i].startArc, std::copysign(from.GetLength(), side)};
  return true;
}

}  // namespace Model
