#pragma once

#include <string>

#include "korvelfile/outside/base/Vector3d.h"

namespace Korvel {

/// What is known of a point of a coordinate file. Texts are bytes, as the file has them.
struct PointInformation {
  Vector3d position;        ///< x east, y north, z height, metres; `kUndefined` is no value
  std::string name;         ///< empty of most points of a line
  std::string pointCode;    ///< what the point is
  std::string specialCode;  ///< how it goes on behind the point: "R" is an arc
  std::string remark;       ///< with the special code "R" the radius, metres, positive to the right
};

}  // namespace Korvel
