/// @file
/// Colours and small shapes of a plot. All places and sizes are points on the page, y downwards.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <cairo.h>

#include "korvelfile/outside/base/Vector.h"

namespace korvel {

struct Colour {
  double red, green, blue;
  double opacity = 1.0;
};

inline constexpr Colour kInk{0.13, 0.16, 0.20};
inline constexpr Colour kFaintInk{0.45, 0.50, 0.55};
inline constexpr Colour kGridColour{0.90, 0.92, 0.94};
inline constexpr Colour kSightColour{0.45, 0.58, 0.70};
inline constexpr Colour kFaintSightColour{0.80, 0.86, 0.88};
inline constexpr Colour kKnownColour{0.09, 0.29, 0.49};
inline constexpr Colour kNewColour{0.10, 0.52, 0.47};
inline constexpr Colour kStationColour{0.75, 0.08, 0.12};
inline constexpr Colour kEllipseColour{0.93, 0.55, 0.14};
inline constexpr Colour kEllipseFill{0.93, 0.55, 0.14, 0.22};
inline constexpr Colour kResidualColour{0.84, 0.10, 0.45};

/// Where a text stands to the place that is given for it.
enum class TextAlign { Left, Centre, Right };

/// How a text looks.
struct TextStyle {
  double size = 8.0;
  Colour colour = kInk;
  bool isBold = false;
  TextAlign align = TextAlign::Left;
  bool hasHalo = false;  ///< white around the letters, to be read on lines
};

/// Draws with a context that somebody else owns.
class PlotPen {
 public:
  explicit PlotPen(cairo_t* context) : context_(context) {}

  double TextWidth(const std::string& text, const TextStyle& style) const;
  /// @param at of the base line
  void Text(const std::string& text, const Vector& at, const TextStyle& style) const;
  /// As `Text` without halo, reading upwards.
  void UpwardText(const std::string& text, const Vector& at, const TextStyle& style) const;

  void Line(const Vector& from, const Vector& to, const Colour& colour, double width) const;
  void DashedLine(const Vector& from, const Vector& to, const Colour& colour, double width) const;
  /// A picture of `columns` x `rows` colours, row by row from the upper left corner.
  void Picture(const Vector& corner, const Vector& size, int columns, int rows,
               const std::vector<Colour>& colours) const;
  /// A line with a head at its end; a very short one is a dot.
  void Arrow(const Vector& from, const Vector& to, const Colour& colour) const;
  void Box(const Vector& corner, const Vector& size, const Colour& colour, bool isFilled) const;

  /// The signs of the map, which its legend repeats.
  void StationSign(const Vector& at) const;
  void KnownSign(const Vector& at) const;
  /// @param radius smaller where there are very many
  void NewSign(const Vector& at, double radius) const;
  /// @param a, b semi-axes
  /// @param azimuth of `a`, radians clockwise from upwards
  void Ellipse(const Vector& centre, double a, double b, double azimuth) const;
  /// An arrow upwards with an N, between `foot` and `foot` less `height`.
  void NorthArrow(const Vector& foot, double height) const;
  /// A bar of four fields, alternately filled, from `left` on.
  void ScaleBar(const Vector& left, double length) const;

  /// Everything that is drawn while `draw` runs is cut off at the box.
  void Clipped(const Vector& corner, const Vector& size, const auto& draw) const {
    cairo_save(context_);
    cairo_rectangle(context_, corner.x, corner.y, size.x, size.y);
    cairo_clip(context_);
    draw();
    cairo_restore(context_);
  }

 private:
  void Use(const Colour& colour) const;
  void UseFont(const TextStyle& style) const;
  void Stroke(const Colour& colour, double width) const;
  void FillAndStroke(const Colour& fill, const Colour& edge, double width) const;
  void Polygon(std::initializer_list<Vector> corners) const;

  cairo_t* context_;
};

}  // namespace korvel
