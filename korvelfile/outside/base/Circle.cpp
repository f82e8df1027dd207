#include "korvelfile/outside/base/Circle.h"

#include <cmath>

Circle::Circle(const Vector& point, double direction, double radius, int)
    : center_(point + radius * Vector(std::sin(direction), -std::cos(direction))),
      radius_(radius) {}
