#pragma once

#include <memory>

#include "korvelfile/outside/model/IRoadLine.h"
#include "korvelfile/outside/model/internal/CrossfallTable.h"
#include "korvelfile/outside/model/internal/ElementList.h"
#include "korvelfile/outside/model/internal/HeightProfile.h"

namespace Model {

/// Our own line: elements, heights and crossfalls put together.
class RoadLine final : public IRoadLine {
 public:
  RoadLine() : RoadLine({}, {}) {}
  RoadLine(HeightProfile profile, CrossfallTable crossfalls);

  LineStation Station(const Coordinate& point) const override;
  Coordinate PointAt(double arc, double offset) const override;
  double GetStartArc() const override { return Elements().GetStartArc(); }
  double GetEndArc() const override { return Elements().GetEndArc(); }
  double GetTotalLength() const override { return Elements().GetTotalLength(); }
  double DirectionAt(double arc) const override { return Elements().PlaceAt(arc).direction; }
  std::shared_ptr<IHorizontalAlignment> GetHorizontalAlignment() const override {
    return alignment_;
  }
  bool CrossfallAt(double arc, double& left, double& right) const override {
    return crossfalls_.SlopesAt(arc, left, right);
  }
  double SurfaceHeightAt(double arc, double offset) const override;

  ElementList& Elements() const { return *alignment_->elements; }

 private:
  struct Alignment final : IHorizontalAlignment {
    std::shared_ptr<ElementList> elements = std::make_shared<ElementList>();

    std::shared_ptr<IHorizontalElementList> GetElements() const override { return elements; }
    void Accept(const std::shared_ptr<IHorizontalGeometryVisitor>& visitor) override {
      visitor->VisitElementList(elements);
    }
  };

  std::shared_ptr<Alignment> alignment_ = std::make_shared<Alignment>();
  HeightProfile profile_;
  CrossfallTable crossfalls_;
};

}  // namespace Model
