#include "korvelfile/outside/base/Polyline.h"

#include <cmath>
#include <cstddef>
#include <optional>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Intersection.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/PolarVector.h"

namespace {

using Geometry = std::shared_ptr<GeometryInterface>;

// Ends that lie within this, in the unit of the coordinates, are one point.
constexpr double kSamePoint = 1e-9;

// One piece of the chain: a line if the radius is 0, else an arc of at most half a circle.
struct Piece {
  Vector start;
  Vector end;
  double radius = 0.0;
  double direction = 0.0;  // of the tangent at the start
  double endDirection = 0.0;
  double length = 0.0;

  Line GetChord() const { return {start, end}; }
  Circle GetCircle() const { return {start, direction, radius, 0}; }
};

Vector RightOf(double direction) { return {std::sin(direction), -std::cos(direction)}; }

bool AreSame(const Vector& a, const Vector& b) { return a.GetDistance(b) <= kSamePoint; }

std::optional<Piece> GetPiece(const GeometryInterface* geometry) {
  if (const auto* line = dynamic_cast<const Line*>(geometry)) {
    const double direction = line->GetDirection();
    return Piece{line->GetStart(), line->GetEnd(), 0.0, direction, direction, line->GetLength()};
  }
  const auto* arc = dynamic_cast<const CircleArc*>(geometry);
  if (arc && arc->GetRadius() != 0.0) {
    return Piece{arc->GetStartPoint(), arc->GetEndPoint(),   arc->GetRadius(),
                 arc->GetBearing(),    arc->GetEndBearing(), arc->GetLength()};
  }
  return {};
}

// Moves the piece to its right; false if nothing is left of it.
bool Shift(Piece& piece, double distance) {
  const double radius = piece.radius == 0.0 ? 0.0 : piece.radius - distance;
  if (!(radius * piece.radius > 0.0) && piece.radius != 0.0) return false;
  if (piece.radius != 0.0) piece.length *= radius / piece.radius;
  piece.start += distance * RightOf(piece.direction);
  piece.end += distance * RightOf(piece.endDirection);
  piece.radius = radius;
  return piece.length > kSamePoint && std::isfinite(piece.length);
}

struct Crossings {
  int count = 0;
  Vector point[2];
};

Crossings CrossLineAndCircle(const Line& line, const Circle& circle) {
  Crossings found;
  if (line.GetIntersection(circle, found.point[0], found.point[1])) found.count = 2;
  return found;
}

// Circles cross where the line of equal powers crosses one of them.
Crossings CrossCircles(const Circle& a, const Circle& b) {
  const Vector between = b.GetCenter() - a.GetCenter();
  const double square = between.GetScalarProduct(between);
  const double powers = a.GetRadius() * a.GetRadius() - b.GetRadius() * b.GetRadius();
  const Vector foot = a.GetCenter() + between * (0.5 + 0.5 * powers / square);
  return CrossLineAndCircle({foot, foot + Vector(-between.y, between.x)}, a);
}

Crossings Cross(const Piece& a, const Piece& b) {
  if (a.radius != 0.0 && b.radius != 0.0) return CrossCircles(a.GetCircle(), b.GetCircle());
  if (a.radius != 0.0) return CrossLineAndCircle(b.GetChord(), a.GetCircle());
  if (b.radius != 0.0) return CrossLineAndCircle(a.GetChord(), b.GetCircle());
  Crossings found;
  if (Intersection::Calculate(a.GetChord(), b.GetChord(), found.point[0])) found.count = 1;
  return found;
}

// How far `to` lies beyond `from`, both on the piece or on what it would be lengthened to.
double WayAlong(const Piece& piece, const Vector& from, const Vector& to) {
  if (piece.radius == 0.0)
    return (to - from).GetScalarProduct(PolarVector(1.0, piece.direction).GetVector());
  const Vector center = piece.GetCircle().GetCenter();
  const double turn = center.GetDirection(to) - center.GetDirection(from);
  return -piece.radius * std::remainder(turn, kTwoPi);
}

double TurnOver(const Piece& piece, double way) {
  return piece.radius == 0.0 ? 0.0 : -way / piece.radius;
}

// Moves an end of a piece along it to `place`; the tangent turns with it.
void MoveStart(Piece& piece, const Vector& place) {
  const double way = WayAlong(piece, piece.start, place);
  piece.direction += TurnOver(piece, way);
  piece.length -= way;
  piece.start = place;
}

void MoveEnd(Piece& piece, const Vector& place) {
  const double way = WayAlong(piece, piece.end, place);
  piece.endDirection += TurnOver(piece, way);
  piece.length += way;
  piece.end = place;
}

// Lets `a` end where `b` begins.
bool Join(Piece& a, Piece& b) {
  if (AreSame(a.end, b.start)) return true;
  const Crossings found = Cross(a, b);
  if (found.count == 0) return false;
  const auto farness = [&](const Vector& p) {
    return p.GetDistance(a.end) + p.GetDistance(b.start);
  };
  const bool isSecond = found.count == 2 && farness(found.point[1]) < farness(found.point[0]);
  MoveEnd(a, found.point[isSecond]);
  MoveStart(b, found.point[isSecond]);
  return true;
}

bool JoinAll(std::vector<Piece>& pieces, bool isClosed) {
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (!Join(pieces[i - 1], pieces[i])) return false;
  }
  return !isClosed || Join(pieces.back(), pieces.front());
}

// The finished piece; empty if it is used up or too much of a circle.
Geometry Finish(const Piece& piece) {
  if (!(piece.length > kSamePoint)) return {};
  if (piece.radius == 0.0) return std::make_shared<Line>(piece.start, piece.end);
  if (piece.length > std::fabs(piece.radius) * kPi + kSamePoint) return {};
  auto arc = std::make_shared<CircleArc>();
  return arc->Set(piece.start, piece.end, piece.radius, 0, 0) ? arc : nullptr;
}

std::vector<Geometry> Build(const std::vector<Geometry>& list, double distance, bool& ok) {
  std::vector<Piece> pieces;
  ok = false;
  if (!std::isfinite(distance)) return {};
  for (const Geometry& geometry : list) {
    auto piece = GetPiece(geometry.get());
    if (!piece || !(piece->length > kSamePoint)) return {};
    pieces.push_back(*piece);
  }
  const bool isClosed = pieces.size() > 1 && AreSame(pieces.front().start, pieces.back().end);
  for (Piece& piece : pieces) {
    if (!Shift(piece, distance)) return {};
  }
  if (!JoinAll(pieces, isClosed)) return {};

  std::vector<Geometry> parallel;
  for (const Piece& piece : pieces) {
    parallel.push_back(Finish(piece));
    if (!parallel.back()) return {};
  }
  ok = true;
  return parallel;
}

}  // namespace

std::vector<Geometry> Polyline::GetParallel(std::vector<Geometry> list, double distance, bool& ok) {
  return Build(list, distance, ok);
}
