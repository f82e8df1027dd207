// A million points scattered along roads of straights, clothoids and arcs, right and left, each
// element 125 m long on average, every other dozen mirrored so that no road crosses itself: found
// among 200, 800 (100 km) and 3200 elements.
//
// Floor: each point stationed on the one element that it was made from. In the last row it is
// stationing among the fewest elements.

#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "support/Ratio.h"

namespace {

constexpr int kPoints = 1000000;
constexpr int kRounds = 3;
constexpr double kBar = 4.0;
constexpr double kWidest = 30.0;  // offset, metres

struct Kind {
  double radius, endRadius, length;
};
constexpr Kind kKinds[] = {{0, 0, 200},     {0, 400, 80},      {400, 400, 190},   {400, 0, 80},
                           {0, -600, 100},  {-600, -600, 170}, {-600, 0, 100},    {0, 250, 70},
                           {250, 250, 110}, {250, -300, 120},  {-300, -300, 135}, {-300, 0, 145}};

class Road : public Model::ILineFileProxy {
 public:
  explicit Road(int count) {
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

  int GetElementCount() const override { return static_cast<int>(elements_.size()); }
  Model::Proxy::LineElement GetAt(int index) const override {
    return elements_[static_cast<std::size_t>(index)];
  }

 private:
  static void Advance(Model::Proxy::LineElement& e, Vector& at, double& direction) {
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

  std::vector<Model::Proxy::LineElement> elements_;
};

struct Sample {
  Model::Coordinate point;
  std::shared_ptr<Model::IHorizontalElement> element;
};

std::vector<Sample> Scatter(const Model::ILine& line) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> arcs(line.GetStartArc(), line.GetEndArc());
  std::uniform_real_distribution<double> offsets(-kWidest, kWidest);
  const auto elements = line.GetHorizontalAlignment()->GetElements();
  std::vector<Sample> samples;
  for (int i = 0; i < kPoints; ++i) {
    const double arc = arcs(random);
    samples.push_back({line.PointAt(arc, offsets(random)), elements->ElementAt(arc)});
  }
  return samples;
}

/// A road with points scattered along it.
struct Scene {
  explicit Scene(int count) : line(BuildLine(Road(count))), samples(Scatter(*line)) {}

  void StationOnKnownElements() const {
    double sum = 0.0;
    for (const Sample& sample : samples) {
      Model::LineStation station;
      if (sample.element->Station(sample.point, station)) sum += station.Arc;
    }
    Keep(sum);
  }

  void Station() const {
    double sum = 0.0;
    for (const Sample& sample : samples) sum += line->Station(sample.point).Arc;
    Keep(sum);
  }

  std::shared_ptr<Model::IRoadLine> line;
  std::vector<Sample> samples;
};

}  // namespace

int main() {
  const Scene small(200);
  const Scene usual(800);
  const Scene large(3200);
  for (const Scene* scene : {&small, &usual, &large}) {
    const int count = scene->line->GetHorizontalAlignment()->GetElements()->GetElementCount();
    PrintRatio(
        "stationing among " + std::to_string(count) + " elements", kBar, kRounds,
        [&] { scene->StationOnKnownElements(); }, [&] { scene->Station(); });
  }
  PrintRatio(
      "stationing among 3200 against 200", std::log(3200.0) / std::log(200.0), kRounds,
      [&] { small.Station(); }, [&] { large.Station(); });
}
