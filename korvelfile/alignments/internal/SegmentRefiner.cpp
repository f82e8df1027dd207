#include "korvelfile/alignments/internal/SegmentRefiner.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/alignments/internal/PxyPoint.h"
#include "korvelfile/outside/model/LineException.h"

namespace File::detail {

namespace {

constexpr double kMargin = 1.05;        // by which a deviation in the plane is made larger
constexpr double kLeastChange = 0.001;  // of the deviation between levels, as a share
constexpr int kDeepest = 100;           // halvings; 60 take a kilometre below its rounding

// By what share `length` differs from `former`.
double ChangeOf(double length, double former) {
  return former == 0.0 ? 1.0 : std::fabs(length / former - 1.0);
}

double LengthInPlane(const Vector3d& v) { return v.GetXY().GetLength(); }

// The running index stands behind a half when that is over, however it ends.
class StepBehind {
 public:
  explicit StepBehind(int& index) : index_(index) {}
  ~StepBehind() { ++index_; }
  StepBehind(const StepBehind&) = delete;
  StepBehind& operator=(const StepBehind&) = delete;

 private:
  int& index_;
};

}  // namespace

SegmentRefiner::Value SegmentRefiner::Refine(const Span& span, const Vector3d& former, int depth) {
  if (inserted_ > settings_.maxPoints) return Value::TooManyPoints;
  if (depth == kDeepest || IsTooShort(span)) {
    SetRadiusRemark(*span.a.point, span.m.Information().remark);
    return Value::SpanTooShort;
  }
  try {
    return RefineDeeper(span, former, depth);
  } catch (const Model::LineException&) {
    return Value::Complete;
  }
}

bool SegmentRefiner::IsTooShort(const Span& span) const {
  const auto [low, high] = std::minmax({span.a.station.Arc, span.b.station.Arc});
  const double arc = span.m.station.Arc;
  const double length = LengthInPlane(span.b.Position() - span.a.Position());
  return high - low <= settings_.maxDeviation || arc < low || arc > high ||
         length < settings_.maxDeviation;
}

SegmentRefiner::Value SegmentRefiner::RefineDeeper(const Span& span, const Vector3d& former,
                                                   int depth) {
  const StationedPoint predicted = interpolator_.Interpolate(span);
  const Vector3d deviation = interpolator_.DeviationOf(span, predicted);
  SetRadiusRemark(*span.a.point, predicted.Information().remark);
  if (!IsWanted(former, deviation)) return Value::Complete;
  return RefineHalves({span.a, predicted, span.b}, deviation, depth);
}

bool SegmentRefiner::IsWanted(const Vector3d& former, const Vector3d& deviation) const {
  const double inPlane = LengthInPlane(deviation);
  const double inHeight = std::fabs(deviation.z);
  if (kMargin * inPlane < settings_.maxDeviation && inHeight < settings_.maxHeightDeviation)
    return false;
  return ChangeOf(inPlane, LengthInPlane(former)) >= kLeastChange ||
         ChangeOf(inHeight, std::fabs(former.z)) >= kLeastChange;
}

SegmentRefiner::Value SegmentRefiner::RefineHalves(const Span& span, const Vector3d& deviation,
                                                   int depth) {
  const SpanGeometry& geometry = interpolator_.GetGeometry();
  StationedPoint middle = span.m;
  Insert(middle, span.a.Information().pointCode);
  Value left = Value::Complete;
  {
    const StepBehind behind(index_);
    left = Refine(geometry.MakeSpan(span.a, middle), deviation, depth + 1);
  }
  return std::max(left, Refine(geometry.MakeSpan(middle, span.b), deviation, depth + 1));
}

// The point in the line takes the place of the one that was predicted.
void SegmentRefiner::Insert(StationedPoint& point, const std::string& pointCode) {
  const std::string radius = point.Information().remark;
  point.point = line_.InsertPoint(index_, point.Position(), "");
  SetRadiusRemark(*point.point, radius);
  point.point->SetPointCode(pointCode);
  ++inserted_;
}

}  // namespace File::detail
