#include "korvelfile/outside/model/LineModel.h"

#include <cmath>
#include <utility>

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/internal/CrossfallTable.h"
#include "korvelfile/outside/model/internal/ElementList.h"
#include "korvelfile/outside/model/internal/Elements.h"
#include "korvelfile/outside/model/internal/HeightProfile.h"

namespace Model {

namespace {

class Alignment final : public IHorizontalAlignment {
 public:
  std::shared_ptr<IHorizontalElementList> GetElements() const override { return elements_; }
  void Accept(const std::shared_ptr<IHorizontalGeometryVisitor>& visitor) override {
    visitor->VisitElementList(elements_);
  }
  ElementList& Elements() const { return *elements_; }

 private:
  std::shared_ptr<ElementList> elements_ = std::make_shared<ElementList>();
};

class Line final : public IRoadLine {
 public:
  Line() = default;
  Line(HeightProfile profile, CrossfallTable crossfalls)
      : profile_(std::move(profile)), crossfalls_(std::move(crossfalls)) {}

  LineStation Station(const Coordinate& point) const override {
    Foot foot;
    if (!Elements().FindNearest(ToVector(point), foot))
      throw LineException("The point has no foot on the line");
    return {foot.length, foot.offset, profile_.HeightAt(foot.length)};
  }

  Coordinate PointAt(double arc, double offset) const override {
    const Place place = Elements().PlaceAt(arc);
    const double a = place.direction;
    const Vector point = place.point + offset * Vector(std::sin(a), -std::cos(a));
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
      throw LineException("The line has no point at this offset");
    return {point.y, point.x, profile_.HeightAt(arc)};
  }

  double GetStartArc() const override { return Elements().GetStartArc(); }
  double GetEndArc() const override { return Elements().GetEndArc(); }
  double GetTotalLength() const override { return GetEndArc() - GetStartArc(); }
  double DirectionAt(double arc) const override { return Elements().PlaceAt(arc).direction; }
  std::shared_ptr<IHorizontalAlignment> GetHorizontalAlignment() const override {
    return alignment_;
  }

  bool CrossfallAt(double arc, double& left, double& right) const override {
    return crossfalls_.SlopesAt(arc, left, right);
  }

  double SurfaceHeightAt(double arc, double offset) const override {
    double left = 0.0;
    double right = 0.0;
    const double height = profile_.HeightAt(arc);
    if (IsUndefined(height) || !CrossfallAt(arc, left, right)) return kUndefined;
    return height + (offset < 0.0 ? left : right) * std::fabs(offset);
  }

  ElementList& Elements() const { return alignment_->Elements(); }

 private:
  std::shared_ptr<Alignment> alignment_ = std::make_shared<Alignment>();
  HeightProfile profile_;
  CrossfallTable crossfalls_;
};

std::shared_ptr<IHorizontalElement> MakeClothoid(const Proxy::LineElement& e) {
  Clothoid curve;
  curve.SetWithParameter(e.Start, e.Bearing, e.Parameter, e.Radius, e.EndRadius);
  return std::make_shared<ClothoidElement>(std::make_shared<ClothoidShape>(curve, e.Length),
                                           e.Section, e.Radius, e.EndRadius);
}

std::shared_ptr<IHorizontalElement> MakeElement(const Proxy::LineElement& e) {
  if (!std::isfinite(e.Section)) throw LineException("An element needs a chainage");
  if (e.Parameter != 0.0) return MakeClothoid(e);
  if (e.Radius == 0.0)
    return std::make_shared<StraightElement>(
        std::make_shared<StraightShape>(e.Start, e.Bearing, e.Length), e.Section);
  return std::make_shared<ArcElement>(
      std::make_shared<ArcShape>(e.Start, e.Bearing, e.Radius, e.Length), e.Section, e.Radius,
      e.Radius);
}

}  // namespace

IRoadLine::~IRoadLine() = default;
LineFactory::~LineFactory() = default;

std::shared_ptr<ILine> LineFactory::CreateLine() { return std::make_shared<Line>(); }

std::shared_ptr<IRoadLine> BuildLine(const ILineFileProxy& line, const IProfileFileProxy* profile,
                                     const ICamberFileProxy* camber) {
  auto built = std::make_shared<Line>(profile ? HeightProfile(*profile) : HeightProfile(),
                                      camber ? CrossfallTable(*camber) : CrossfallTable());
  for (int i = 0; i < line.GetElementCount(); ++i)
    built->Elements().Append(MakeElement(line.GetAt(i)), true);
  return built;
}

}  // namespace Model
