#include "korvelfile/alignments/internal/RadiusCalculator.h"

#include <cmath>
#include <memory>

#include "korvelfile/outside/base/MatFunc.h"
#include "korvelfile/outside/model/LineException.h"

namespace File::detail {

namespace {

double Inverse(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

// Goes to the element at an arc and notes the radius there.
class RadiusVisitor : public Model::IHorizontalElementVisitor,
                      public std::enable_shared_from_this<RadiusVisitor> {
 public:
  RadiusVisitor(double arc, double tolerance) : arc_(arc), tolerance_(tolerance) {}

  double GetRadius() const { return radius_; }

  void VisitElementList(const std::shared_ptr<Model::IHorizontalElementList>& list) override {
    list->ElementAt(arc_)->Accept(shared_from_this());
  }
  void VisitCircularArc(const std::shared_ptr<Model::IHorizontalCurve>& element) override {
    radius_ = element->GetRadius();
  }
  // The curvature of a clothoid grows evenly along it.
  void VisitClothoid(const std::shared_ptr<Model::IHorizontalCurve>& element) override {
    const double start = element->GetStartArc();
    const double end = element->GetEndArc();
    const double k1 = Inverse(element->GetRadius());
    const double k2 = Inverse(element->GetEndRadius());
    const bool isShort = std::fabs(end - start) <= tolerance_;
    radius_ =
        Inverse(isShort ? 0.5 * (k1 + k2) : MatFunc::FirstDegree::Value(start, k1, end, k2, arc_));
  }
  void VisitStraight(const std::shared_ptr<Model::IHorizontalElement>& /*element*/) override {}
  void VisitPoint(const std::shared_ptr<Model::IHorizontalElement>& /*element*/) override {}
  void VisitOther(const std::shared_ptr<Model::IHorizontalElement>& /*element*/) override {}

 private:
  double arc_;
  double tolerance_;
  double radius_ = 0.0;
};

}  // namespace

double RadiusCalculator::CenterRadiusAt(double arc) const {
  const auto visitor = std::make_shared<RadiusVisitor>(arc, tolerance_);
  try {
    line_.GetHorizontalAlignment()->Accept(visitor);
  } catch (const Model::LineException&) {
    return 0.0;
  }
  return visitor->GetRadius();
}

double RadiusCalculator::RadiusAt(double arc, double offset) const {
  const double radius = CenterRadiusAt(arc);
  if (std::fabs(radius) <= tolerance_) return 0.0;
  return std::copysign(radius - offset, radius);
}

}  // namespace File::detail
