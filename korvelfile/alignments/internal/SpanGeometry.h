#pragma once

#include "korvelfile/alignments/internal/RadiusCalculator.h"
#include "korvelfile/alignments/internal/RefinementSettings.h"
#include "korvelfile/alignments/internal/StationedPoint.h"

namespace File::detail {

/// What two neighbouring points of a line and the centre line predict between them.
///
/// All operations throw `Model::LineException` for places that the centre line doesn't have. A
/// height between two of which one is undefined is undefined.
class SpanGeometry {
 public:
  explicit SpanGeometry(const RefinementSettings& settings);

  /// True if the way from `a` to `b` goes along the centre line rather than across it: offset and
  /// centre-line height change by less than a hundred times the arc.
  static bool RunsAlong(const StationedPoint& a, const StationedPoint& b);

  /// The point halfway from `a` to `b`: on an arc of `radius` or, where that is 0, of the centre
  /// line's radius there; else on the straight. Its remark is the radius, empty of a straight.
  StationedPoint MidPoint(const StationedPoint& a, const StationedPoint& b,
                          double radius = 0.0) const;

  /// The span from `a` to `b` by way of their mid point.
  Span MakeSpan(const StationedPoint& a, const StationedPoint& b, double radius = 0.0) const {
    return {a, MidPoint(a, b, radius), b};
  }

  /// The point at the arc of the span's `m`: offset and height above the centre line are those
  /// between `a` and `b`, the shape is the centre line's. Where a height of the centre line is
  /// undefined, the height runs straight from `a` to `b`.
  StationedPoint Interpolate(const Span& span) const;

  double GetTolerance() const { return radii_.GetTolerance(); }

  /// See `RadiusCalculator`.
  double RadiusAt(double arc, double offset) const { return radii_.RadiusAt(arc, offset); }

 private:
  double RadiusBetween(const StationedPoint& a, const StationedPoint& b, double radius) const;

  const Model::ILine& line_;
  RadiusCalculator radii_;
};

}  // namespace File::detail
