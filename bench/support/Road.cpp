#include "support/Road.h"

#include <cmath>
#include <cstddef>
#include <iterator>

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"

namespace {

struct Kind {
  double radius, endRadius, length;
};
constexpr Kind kKinds[] = {{0, 0, 200},     {0, 400, 80},      {400, 400, 190},   {400, 0, 80},
                           {0, -600, 100},  {-600, -600, 170}, {-600, 0, 100},    {0, 250, 70},
                           {250, 250, 110}, {250, -300, 120},  {-300, -300, 135}, {-300, 0, 145}};

// From the start of an element to its end.
void Advance(Model::Proxy::LineElement& e, Vector& at, double& direction) {
  if (e.Radius != e.EndRadius) {
    Clothoid curve;
    curve.SetWithLength(at, direction, e.Length, e.Radius, e.EndRadius);
    e.Parameter = curve.GetParameter();
    at = curve.TangentPoint(&direction, nullptr, e.Length);
    return;
  }
  const double turn = e.Radius == 0.0 ? 0.0 : e.Length / e.Radius;
  const double chord = turn == 0.0 ? e.Length : 2.0 * e.Radius * std::sin(0.5 * turn);
  at += PolarVector(chord, direction - 0.5 * turn).GetVector();
  direction -= turn;
}

}  // namespace

Road::Road(int count) {
  Vector at(674000.0, 6580000.0);
  double direction = 0.5;
  double chainage = 0.0;
  for (int i = 0; i < count; ++i) {
    const auto number = static_cast<std::size_t>(i);
    const Kind& kind = kKinds[number % std::size(kKinds)];
    const double side = number / std::size(kKinds) % 2 == 0 ? 1.0 : -1.0;
    elements_.push_back({L"", at, chainage, direction, side * kind.radius, side * kind.endRadius,
                         kind.length, 0.0});
    Advance(elements_.back(), at, direction);
    chainage += kind.length;
  }
}

int Road::GetElementCount() const { return static_cast<int>(elements_.size()); }

Model::Proxy::LineElement Road::GetAt(int index) const {
  return elements_[static_cast<std::size_t>(index)];
}
