#include "korvelfile/alignments/internal/SpanGeometry.h"

#include <cmath>
#include <memory>
#include <string>

#include "korvelfile/alignments/internal/PxyPoint.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/MatFunc.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Undefined.h"

namespace File::detail {

namespace {

constexpr double kSteepest = 100.0;  // across the centre line per metre along it
constexpr int kRadiusDigits = 16;

std::string RadiusText(double radius) {
  return radius == 0.0 ? std::string() : GeneralText(radius, kRadiusDigits);
}

bool HasUndefined(double a, double b) { return IsUndefined(a) || IsUndefined(b); }

double MeanHeight(double a, double b) { return HasUndefined(a, b) ? kUndefined : 0.5 * (a + b); }

// Halfway along an arc, which becomes a straight if there is no such arc.
Vector3d Halfway(const Vector3d& a, const Vector3d& b, double& radius) {
  const double z = MeanHeight(a.z, b.z);
  CircleArc arc;
  if (radius != 0.0 && !arc.Set(a.GetXY(), b.GetXY(), radius, 0, 0)) radius = 0.0;
  const Vector xy = radius == 0.0 ? 0.5 * (a.GetXY() + b.GetXY()) : arc.GetMidPoint();
  return {xy.x, xy.y, z};
}

// Height at `arc`, where the centre line has the height `lineHeight`.
double HeightAt(const StationedPoint& a, const StationedPoint& b, double arc, double lineHeight) {
  const double za = a.Position().z;
  const double zb = b.Position().z;
  const double ha = a.station.Height;
  const double hb = b.station.Height;
  if (HasUndefined(za, zb)) return kUndefined;
  if (HasUndefined(ha, hb) || IsUndefined(lineHeight))
    return MatFunc::FirstDegree::Value(a.station.Arc, za, b.station.Arc, zb, arc);
  return lineHeight +
         MatFunc::FirstDegree::Value(a.station.Arc, za - ha, b.station.Arc, zb - hb, arc);
}

}  // namespace

SpanGeometry::SpanGeometry(const RefinementSettings& settings)
    : line_(settings.line), radii_(settings.line, settings.tolerance) {}

bool SpanGeometry::RunsAlong(const StationedPoint& a, const StationedPoint& b) {
  const double limit = kSteepest * std::fabs(a.station.Arc - b.station.Arc);
  return std::fabs(a.station.Offset - b.station.Offset) < limit &&
         std::fabs(a.station.Height - b.station.Height) < limit;
}

double SpanGeometry::RadiusBetween(const StationedPoint& a, const StationedPoint& b,
                                   double radius) const {
  if (!RunsAlong(a, b)) return 0.0;
  if (radius != 0.0) return radius;
  return RadiusAt(0.5 * (a.station.Arc + b.station.Arc),
                  0.5 * (a.station.Offset + b.station.Offset));
}

StationedPoint SpanGeometry::MidPoint(const StationedPoint& a, const StationedPoint& b,
                                      double radius) const {
  radius = RadiusBetween(a, b, radius);
  const Vector3d position = Halfway(a.Position(), b.Position(), radius);
  return StationPoint(
      line_, std::make_shared<PxyPoint>(position, RadiusText(radius), a.Information().pointCode));
}

StationedPoint SpanGeometry::Interpolate(const Span& span) const {
  const StationedPoint& a = span.a;
  const StationedPoint& b = span.b;
  const double arc = span.m.station.Arc;
  const double offset = MatFunc::FirstDegree::Value(a.station.Arc, a.station.Offset, b.station.Arc,
                                                    b.station.Offset, arc);
  const Model::Coordinate place = line_.PointAt(arc, offset);
  const Vector3d position(place.X, place.Y, HeightAt(a, b, arc, place.Z));
  return {
      std::make_shared<PxyPoint>(position, span.m.Information().remark, a.Information().pointCode),
      {arc, offset, place.Z}};
}

}  // namespace File::detail
