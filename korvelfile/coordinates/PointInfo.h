#pragma once

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector3d.h"

class DataItemListObject;

/// What an index of several files knows of one point.
class PointInfo {
 public:
  /// File index of a point that came from no file.
  static constexpr unsigned char kNoFile = 255;

  PointInfo() = default;
  /// @param radius in metres, 0 for none
  /// @param bearing in radians, or undefined
  /// @param attributes child list of the point, owned by its file; or null
  /// @param fileIndex place of the file in the load, from 0
  PointInfo(const Vector3d& position, double radius, double bearing, DataItemListObject* attributes,
            unsigned char fileIndex)
      : position_(position),
        radius_(radius),
        bearing_(bearing),
        attributes_(attributes),
        fileIndex_(fileIndex) {}

  /// The coordinates (x, y, z) of the point.
  Vector3d GetENH() const { return position_; }
  double GetRadius() const { return radius_; }
  double GetBearing() const { return bearing_; }
  unsigned char GetFileIndex() const { return fileIndex_; }
  DataItemListObject* GetAttributeHolder() const { return attributes_; }

 private:
  Vector3d position_;
  double radius_ = 0.0;
  double bearing_ = kUndefined;
  DataItemListObject* attributes_ = nullptr;
  unsigned char fileIndex_ = kNoFile;
};
