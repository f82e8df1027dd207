/// @file
/// Elements of our own lines: a shape that begins somewhere along a line, behind the interfaces.
#pragma once

#include <memory>
#include <utility>

#include "korvelfile/outside/base/ThrowableErrorCode.h"
#include "korvelfile/outside/base/Vector.h"
#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/model/internal/Shape.h"

namespace Model {

inline Vector ToVector(const Coordinate& c) { return {c.X, c.Y}; }
inline Coordinate ToCoordinate(const Vector& v) { return {v.y, v.x, 0.0}; }

/// What our own elements have beside their interface.
class ShapeHolder {
 public:
  virtual ~ShapeHolder() = default;
  virtual const std::shared_ptr<const Shape>& GetShape() const = 0;
};

/// A shape behind an interface of elements.
template <class Interface>
class Element : public Interface,
                public ShapeHolder,
                public std::enable_shared_from_this<Element<Interface>> {
 public:
  Element(std::shared_ptr<const Shape> shape, double startArc)
      : shape_(std::move(shape)), startArc_(startArc), end_(shape_->GetEnd().point) {}

  /// Of two given ends: the end comes back as it was given, free from rounding.
  void SetEndPoint(const Vector& end) { end_ = end; }

  double GetStartArc() const override { return startArc_; }
  double GetEndArc() const override { return startArc_ + shape_->GetLength(); }
  Coordinate GetEndPoint() const override { return ToCoordinate(end_); }
  Coordinate GetStartPoint() const override { return ToCoordinate(shape_->GetStart().point); }

  ThrowableErrorCode<bool> Station(const Coordinate& point, LineStation& result) const override {
    Foot foot;
    const bool isFound = shape_->FindFoot(ToVector(point), foot);
    if (isFound) result = {startArc_ + foot.length, foot.offset, 0.0};
    return isFound;
  }

  const std::shared_ptr<const Shape>& GetShape() const override { return shape_; }

 private:
  std::shared_ptr<const Shape> shape_;
  double startArc_;
  Vector end_;
};

/// Straight of a line.
class StraightElement final : public Element<IHorizontalElement> {
 public:
  using Element::Element;
  void Accept(const std::shared_ptr<IHorizontalElementVisitor>& visitor) override {
    visitor->VisitStraight(shared_from_this());
  }
};

/// Curve of a line, with its two radii.
class CurveElement : public Element<IHorizontalCurve> {
 public:
  CurveElement(std::shared_ptr<const Shape> shape, double startArc, double radius, double endRadius)
      : Element(std::move(shape), startArc), radius_(radius), endRadius_(endRadius) {}

  double GetRadius() const override { return radius_; }
  double GetEndRadius() const override { return endRadius_; }

 private:
  double radius_;
  double endRadius_;
};

/// Circular arc of a line.
class ArcElement final : public CurveElement {
 public:
  using CurveElement::CurveElement;
  void Accept(const std::shared_ptr<IHorizontalElementVisitor>& visitor) override {
    visitor->VisitCircularArc(shared_from_this());
  }
};

/// Clothoid of a line.
class ClothoidElement final : public CurveElement {
 public:
  using CurveElement::CurveElement;
  void Accept(const std::shared_ptr<IHorizontalElementVisitor>& visitor) override {
    visitor->VisitClothoid(shared_from_this());
  }
};

}  // namespace Model
