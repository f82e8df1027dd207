#pragma once

#include <cfloat>

#include "korvelfile/outside/base/Rect.h"
#include "korvelfile/outside/base/Vector3d.h"

/// One point of a compact store. Texts end at their first zero byte.
struct SimpleGeoPt {
  Vector3d Position{DBL_MAX, DBL_MAX, DBL_MAX};
  unsigned int Colour = 0xFFFFFFFF;
  char Name[33] = {};
  char PointCode[9] = {};
  char SpecialCode[3] = {};
  char Remark[13] = {};
};

/// One line of a compact store; its points follow each other in the store.
struct SimpleGeoLine {
  char Name[256] = {};
  char Code[256] = {};
  int PointCount = 0;
  int FirstPoint = -1;  ///< index into the point store
  bool Closed = false;
  Rect Extent;
  unsigned int Colour = 0xFFFFFFFF;
};

/// Attributes of a compact store: it keeps none.
class SimpleGeoAttr {};
