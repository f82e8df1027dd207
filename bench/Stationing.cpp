// A million points scattered along roads: found among 200, 800 (100 km) and 3200 elements.
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

#include "korvelfile/outside/model/LineFactory.h"
#include "support/Ratio.h"
#include "support/Road.h"

namespace {

constexpr int kPoints = 1000000;
constexpr int kRounds = 3;
constexpr double kBar = 4.0;
constexpr double kWidest = 30.0;  // offset, metres

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
