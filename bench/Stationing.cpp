// Points scattered along a line, stationed by the line, against stationing each by the one element
// that it belongs to, known beforehand.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineModel.h"
#include "support/Ratio.h"

namespace {

constexpr int kPoints = 1000000;
constexpr double kBar = 4.0;
constexpr double kFarthest = 40.0;  // metres from the line

struct Road : Model::ILineFileProxy {
  std::vector<Model::Proxy::LineElement> elements;
  int GetElementCount() const override { return static_cast<int>(elements.size()); }
  Model::Proxy::LineElement GetAt(int index) const override {
    return elements[static_cast<std::size_t>(index)];
  }
};

// Straight, clothoid, arc, clothoid, to the right and to the left in turn, 125 m each on average.
Road MakeRoad(int count) {
  const std::array<std::array<double, 3>, 8> kinds{{{0, 0, 150},
                                                    {0, 400, 90},
                                                    {400, 400, 170},
                                                    {400, 0, 90},
                                                    {0, 0, 150},
                                                    {0, -400, 90},
                                                    {-400, -400, 170},
                                                    {-400, 0, 90}}};
  Road road;
  Vector at(500000.0, 6700000.0);
  double direction = 0.4;
  double chainage = 0.0;
  for (int i = 0; i < count; ++i) {
    const auto [radius, endRadius, length] = kinds[static_cast<std::size_t>(i) % kinds.size()];
    Model::Proxy::LineElement e{L"", at, chainage, direction, radius, endRadius, length, 0.0};
    if (radius != endRadius) {
      Clothoid curve;
      curve.SetWithLength(at, direction, length, radius, endRadius);
      e.Parameter = curve.GetParameter();
      at = curve.TangentPoint(&direction, nullptr, length);
    } else if (radius == 0.0) {
      at += PolarVector(length, direction).GetVector();
    } else {
      const double half = 0.5 * length / radius;
      at += PolarVector(2.0 * radius * std::sin(half), direction - half).GetVector();
      direction -= 2.0 * half;
    }
    road.elements.push_back(e);
    chainage += length;
  }
  return road;
}

struct Points {
  std::vector<Model::Coordinate> points;
  std::vector<std::shared_ptr<Model::IHorizontalElement>> elements;  // of each
};

Points Scatter(const Model::ILine& line) {
  std::mt19937_64 random(20260301);
  std::uniform_real_distribution<double> arc(line.GetStartArc(), line.GetEndArc());
  std::uniform_real_distribution<double> offset(-kFarthest, kFarthest);
  const auto elements = line.GetHorizontalAlignment()->GetElements();
  Points scattered;
  for (int i = 0; i < kPoints; ++i) {
    const double at = arc(random);
    scattered.points.push_back(line.PointAt(at, offset(random)));
    scattered.elements.push_back(elements->ElementAt(at));
  }
  return scattered;
}

void Compare(int elements) {
  const auto line = Model::BuildLine(MakeRoad(elements));
  const Points scattered = Scatter(*line);
  const auto floor = [&] {
    double sum = 0.0;
    for (std::size_t i = 0; i < scattered.points.size(); ++i) {
      Model::LineStation station;
      if (scattered.elements[i]->Station(scattered.points[i], station)) sum += station.Arc;
    }
    Keep(sum);
  };
  const auto work = [&] {
    double sum = 0.0;
    for (const Model::Coordinate& point : scattered.points) sum += line->Station(point).Arc;
    Keep(sum);
  };
  PrintRatio("1,000,000 points along " + std::to_string(elements) + " elements", kBar, 3, floor,
             work);
}

}  // namespace

int main() {
  for (const int elements : {200, 800, 3200}) Compare(elements);
  return 0;
}
