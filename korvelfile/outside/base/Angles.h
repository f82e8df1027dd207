/// @file
/// Angles: units, periods, and the turn from mathematical angle to azimuth.
///
/// Angles are radians unless a name says gon. A mathematical angle counts from the x axis towards
/// the y axis. An azimuth or bearing counts clockwise from north, the y axis of (E, N). All
/// functions are pure and safe from any thread.
#pragma once

#include <numbers>

#include "korvelfile/outside/base/Export.h"

inline constexpr double kPi = std::numbers::pi;  ///< Half a turn, radians.
inline constexpr double kTwoPi = 2.0 * kPi;      ///< A full turn, radians.
inline constexpr double kHalfPi = 0.5 * kPi;     ///< A right angle, radians.

inline constexpr double kRadiansPerGon = kPi / 200.0;     ///< 400 gon make a turn.
inline constexpr double kRadiansPerDegree = kPi / 180.0;  ///< 360 degrees make a turn.

/// `a` brought into [base, base + period) by whole periods.
///
/// A value that lies there already comes back bit for bit. The time does not depend on the size of
/// `a`.
/// @param a       any angle
/// @param period  > 0, in the unit of `a`
/// @param base    where the period begins, in the unit of `a`
/// @return NaN if an argument is not finite or `period` is not positive
KORVELBASE_EXPORT double NormalizeAngle(double a, double period, double base);

/// The zenith angle that a vertical reading of either face stands for.
///
/// @param z  vertical reading, 0 in the zenith, 0 to 2 pi
/// @return   `z` up to pi, 2 pi - `z` above it
constexpr double NormalizeVAngle(double z) { return z > kPi ? kTwoPi - z : z; }

/// pi/2 - `a`: the azimuth of the mathematical angle `a`, and the other way round.
///
/// The result is not brought into a period.
constexpr double SwapAngleDirection(double a) { return kHalfPi - a; }

/// `a` shifted by whole turns so that it lies within pi of `first`, both ends included.
///
/// A mean of directions that were all justified to the first one does not break where the circle
/// wraps. A value that lies there already comes back bit for bit.
/// @return NaN if an argument is not finite
KORVELBASE_EXPORT double HAngleJustifyToFirst(double first, double a);

/// Mathematical angle, radians, of a bearing in gon: pi/2 - g pi/200, in no particular period.
constexpr double GonToBearing(double g) { return kHalfPi - g / 200.0 * kPi; }

/// Bearing in gon, 0 up to but not including 400, of the mathematical angle `b` in radians.
///
/// Inverse of `GonToBearing`. NaN if `b` is not finite.
KORVELBASE_EXPORT double BearingToGon(double b);

/// `value` as the nearest whole number, halves away from zero.
///
/// Beyond the range of `int` it is the nearer limit of `int`; NaN is 0.
KORVELBASE_EXPORT int RoundInt(double value);
