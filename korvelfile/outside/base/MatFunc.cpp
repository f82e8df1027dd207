#include "korvelfile/outside/base/MatFunc.h"

#include <cmath>

double MatFunc::FirstDegree::Value(double x1, double y1, double x2, double y2, double x) {
  return std::lerp(y1, y2, x1 == x2 ? 0.5 : (x - x1) / (x2 - x1));
}
