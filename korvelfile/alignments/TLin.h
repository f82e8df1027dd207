#pragma once

#include <string>

/// One element of a line file: a copy, which changes nothing in the file when it changes.
///
/// Metres and gon. Bearings run clockwise from the +Y axis to the +X axis, 400 to the circle. Radii
/// are positive where the bearing grows along the element, negative where it falls, and 0 where
/// it is straight. An element is a clothoid if its parameter isn't 0, else an arc if its radius
/// isn't 0, else a straight; it ends where the next one starts. A plain value, all zero when new.
class TLin {
 public:
  const std::string& GetElemNo() const { return elemNo_; }  ///< Element number.
  double GetX() const { return x_; }                        ///< X of the start.
  double GetY() const { return y_; }                        ///< Y of the start.
  double GetSection() const { return section_; }            ///< Chainage of the start.
  double GetRadius() const { return radius_; }              ///< Radius at the start.
  double GetBearing() const { return bearing_; }            ///< Tangent at the start, gon.
  double GetParameter() const { return parameter_; }        ///< Clothoid parameter A, or 0.
  double GetERadius() const { return eRadius_; }            ///< Radius at the end.
  double GetLength() const { return length_; }              ///< Length along the element.

  void SetElemNo(const std::string& elemNo) { elemNo_ = elemNo; }  ///< At most 12 are stored.
  void SetX(double x) { x_ = x; }                                  ///< See `GetX`.
  void SetY(double y) { y_ = y; }                                  ///< See `GetY`.
  void SetSection(double section) { section_ = section; }          ///< See `GetSection`.
  void SetRadius(double radius) { radius_ = radius; }              ///< See `GetRadius`.
  void SetBearing(double bearing) { bearing_ = bearing; }          ///< See `GetBearing`.
  void SetParameter(double parameter) { parameter_ = parameter; }  ///< See `GetParameter`.
  void SetERadius(double eRadius) { eRadius_ = eRadius; }          ///< See `GetERadius`.
  void SetLength(double length) { length_ = length; }              ///< See `GetLength`.

 private:
  std::string elemNo_;
  double x_ = 0.0;
  double y_ = 0.0;
  double section_ = 0.0;
  double radius_ = 0.0;
  double bearing_ = 0.0;
  double parameter_ = 0.0;
  double eRadius_ = 0.0;
  double length_ = 0.0;
};
