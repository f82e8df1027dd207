#pragma once

#include <string>

#include "korvelfile/outside/base/Vector3d.h"

/// A point as a `CoordinatesKeeper` gives it.
struct CooPtData {
  Vector3d Position;    ///< metres
  double Radius = 0.0;  ///< metres; 0 for none
};

/// A line as a `CoordinatesKeeper` gives it.
struct CooLineData {
  std::wstring Name;
  std::wstring Code;
  int Index = 0;  ///< of the line, from 0
};
