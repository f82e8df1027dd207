// Points of clothoids, 2 million each, along curves that turn little, much, and over.
//
// Floor: one sine and one cosine of the tangent's direction for each point.

#include <cmath>
#include <cstddef>
#include <string>

#include "korvelfile/outside/base/Clothoid.h"
#include "support/Ratio.h"

namespace {

constexpr int kPoints = 2000000;
constexpr int kRounds = 5;
constexpr double kBar = 20.0;

struct Shape {
  const char* what;
  double parameter;
  double startRadius;
  double endRadius;
};

constexpr Shape kShapes[] = {
    {"entry, A 200 to R 400", 200.0, 0.0, 400.0},
    {"exit, A 200 from R -120", 200.0, -120.0, 0.0},
    {"between R 300 and R 90, A 150", 150.0, 300.0, 90.0},
    {"turning over from R 100 to R -80, A 100", 100.0, 100.0, -80.0},
    {"many turns, A 100 to R 8", 100.0, 0.0, 8.0},
};

void Measure(const Shape& shape) {
  Clothoid clothoid;
  clothoid.SetWithParameter({674000.0, 6580000.0}, 0.4, shape.parameter, shape.startRadius,
                            shape.endRadius);
  const double step = clothoid.CalcArcLength() / kPoints;
  const auto floor = [&] {
    double sum = 0.0;
    for (int i = 0; i < kPoints; ++i) {
      const double angle = 0.4 + 1e-6 * i;
      sum += std::sin(angle) + std::cos(angle);
    }
    Keep(sum);
  };
  const auto work = [&] {
    Vector sum;
    for (int i = 0; i < kPoints; ++i) sum += clothoid.TangentPoint(nullptr, nullptr, step * i);
    Keep(sum);
  };
  PrintRatio(std::string("points of a clothoid: ") + shape.what, kBar, kRounds, floor, work);
}

}  // namespace

int main() {
  for (const Shape& shape : kShapes) Measure(shape);
}
