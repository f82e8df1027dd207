/// @file
/// What a line model is built from: elements of a line, of its profile and of its crossfall, one
/// by one, whatever file they come from.
#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/Vector.h"

namespace Model {

namespace Proxy {

/// Element of a horizontal alignment, from its start on.
///
/// Radii are signed: positive turns right, so that the mathematical angle falls; 0 is infinite.
struct LineElement {
  std::wstring Name;       ///< element number
  Vector Start;            ///< where it begins, x east and y north, metres
  double Section = 0.0;    ///< chainage of the start, metres
  double Bearing = 0.0;    ///< tangent at the start: mathematical angle, radians
  double Radius = 0.0;     ///< at the start, metres
  double EndRadius = 0.0;  ///< at the end, metres
  double Length = 0.0;     ///< metres; 0 of the element that closes a line
  double Parameter = 0.0;  ///< clothoid parameter A, metres; 0 of all that is no clothoid
};

/// Element of a profile, from its start on.
struct ProfileElement {
  std::wstring Name;     ///< element number
  double Section = 0.0;  ///< chainage of the start, metres
  double Z = 0.0;        ///< height of the start, metres
  double Slope = 0.0;    ///< at the start, height per chainage
  double Radius = 0.0;   ///< of the vertical curve: positive in a sag, 0 of a straight grade
  double Length = 0.0;   ///< along the chainage, metres
  double OffsL = 0.0;    ///< left offset, metres
  double OffsR = 0.0;    ///< right offset, metres
};

/// Crossfall at a chainage.
struct CamberSlopeElement {
  double Section = 0.0;  ///< chainage, metres
  double Slope1 = 0.0;   ///< first slope, ratio
  double Slope2 = 0.0;   ///< second slope, ratio
  std::wstring Name;     ///< element number
};

}  // namespace Proxy

/// Elements of a horizontal alignment, in their order.
class KORVELFILE_EXPORT ILineFileProxy {
 public:
  virtual ~ILineFileProxy();

  /// How many there are.
  virtual int GetElementCount() const = 0;

  /// Element number `index`, from 0 and below the count.
  virtual Proxy::LineElement GetAt(int index) const = 0;
};

/// Elements of a profile, in their order.
class KORVELFILE_EXPORT IProfileFileProxy {
 public:
  virtual ~IProfileFileProxy();

  /// How many there are.
  virtual int GetElementCount() const = 0;

  /// Element number `index`, from 0 and below the count.
  virtual Proxy::ProfileElement GetAt(int index) const = 0;
};

/// Crossfalls along a line, in their order.
class KORVELFILE_EXPORT ICamberFileProxy {
 public:
  virtual ~ICamberFileProxy();

  /// How many there are.
  virtual int GetElementCount() const = 0;

  /// Number `index`, from 0 and below the count.
  virtual Proxy::CamberSlopeElement GetAt(int index) const = 0;
};

}  // namespace Model
