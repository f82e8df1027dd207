#include "tools/korvel/PlotPen.h"

#include "korvelfile/outside/base/Angles.h"
#include "tools/korvel/Printable.h"

namespace {

constexpr korvel::Colour kWhite{1.0, 1.0, 1.0};
constexpr double kHaloWidth = 2.4;
constexpr double kArrowHead = 5.0;

}  // namespace

namespace korvel {

void PlotPen::Use(const Colour& c) const {
  cairo_set_source_rgba(context_, c.red, c.green, c.blue, c.opacity);
}

void PlotPen::UseFont(const TextStyle& style) const {
  cairo_select_font_face(context_, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         style.isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context_, style.size);
}

void PlotPen::Stroke(const Colour& colour, double width) const {
  Use(colour);
  cairo_set_line_width(context_, width);
  cairo_stroke(context_);
}

void PlotPen::FillAndStroke(const Colour& fill, const Colour& edge, double width) const {
  Use(fill);
  cairo_fill_preserve(context_);
  Stroke(edge, width);
}

void PlotPen::Polygon(std::initializer_list<Vector> corners) const {
  for (const Vector& corner : corners) cairo_line_to(context_, corner.x, corner.y);
  cairo_close_path(context_);
}

double PlotPen::TextWidth(const std::string& text, const TextStyle& style) const {
  UseFont(style);
  cairo_text_extents_t extents;
  cairo_text_extents(context_, Printable(text).c_str(), &extents);
  return extents.x_advance;
}

void PlotPen::Text(const std::string& text, const Vector& at, const TextStyle& style) const {
  const double width = TextWidth(text, style);
  const double shift = style.align == TextAlign::Left     ? 0.0
                       : style.align == TextAlign::Centre ? width / 2.0
                                                          : width;
  cairo_new_path(context_);
  cairo_move_to(context_, at.x - shift, at.y);
  if (style.hasHalo) {
    cairo_text_path(context_, Printable(text).c_str());
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
    Stroke(kWhite, kHaloWidth);
    cairo_move_to(context_, at.x - shift, at.y);
  }
  Use(style.colour);
  cairo_show_text(context_, Printable(text).c_str());
  cairo_new_path(context_);
}

void PlotPen::UpwardText(const std::string& text, const Vector& at, const TextStyle& style) const {
  cairo_save(context_);
  cairo_translate(context_, at.x, at.y);
  cairo_rotate(context_, -kHalfPi);
  Text(text, {}, style);
  cairo_restore(context_);
}

void PlotPen::Line(const Vector& from, const Vector& to, const Colour& colour, double width) const {
  cairo_move_to(context_, from.x, from.y);
  cairo_line_to(context_, to.x, to.y);
  Stroke(colour, width);
}

void PlotPen::DashedLine(const Vector& from, const Vector& to, const Colour& colour,
                         double width) const {
  constexpr double kDashes[] = {4.0, 2.5};
  cairo_set_dash(context_, kDashes, 2, 0.0);
  Line(from, to, colour, width);
  cairo_set_dash(context_, nullptr, 0, 0.0);
}

void PlotPen::Arrow(const Vector& from, const Vector& to, const Colour& colour) const {
  constexpr double kLineWidth = 1.3;
  const Vector way = to - from;
  const double length = way.GetLength();
  if (length < 1.0) {
    cairo_arc(context_, from.x, from.y, 1.0, 0.0, kTwoPi);
    FillAndStroke(colour, colour, 0.0);
    return;
  }
  const double head = length < 2.0 * kArrowHead ? length / 2.0 : kArrowHead;
  const Vector along = way * (head / length);
  const Vector across = Vector(-along.y, along.x) * 0.45;
  Line(from, to - along, colour, kLineWidth);
  Polygon({to, to - along + across, to - along - across});
  FillAndStroke(colour, colour, 0.3);
}

void PlotPen::Box(const Vector& corner, const Vector& size, const Colour& colour,
                  bool isFilled) const {
  cairo_rectangle(context_, corner.x, corner.y, size.x, size.y);
  Use(colour);
  cairo_set_line_width(context_, 0.8);
  isFilled ? cairo_fill(context_) : cairo_stroke(context_);
}

void PlotPen::Picture(const Vector& corner, const Vector& size, int columns, int rows,
                      const std::vector<Colour>& colours) const {
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows);
  cairo_t* pixels = cairo_create(image);
  for (int i = 0; i < rows * columns; ++i) {
    const Colour& c = colours[static_cast<std::size_t>(i)];
    cairo_set_source_rgba(pixels, c.red, c.green, c.blue, c.opacity);
    cairo_rectangle(pixels, i % columns, i / columns, 1.0, 1.0);
    cairo_fill(pixels);
  }
  cairo_destroy(pixels);
  cairo_save(context_);
  cairo_translate(context_, corner.x, corner.y);
  cairo_scale(context_, size.x / columns, size.y / rows);
  cairo_set_source_surface(context_, image, 0.0, 0.0);
  cairo_pattern_set_filter(cairo_get_source(context_), CAIRO_FILTER_NEAREST);
  cairo_paint(context_);
  cairo_restore(context_);
  cairo_surface_destroy(image);
}

void PlotPen::StationSign(const Vector& at) const {
  constexpr double kRadius = 5.0;
  cairo_arc(context_, at.x, at.y, kRadius, 0.0, kTwoPi);
  FillAndStroke(kWhite, kStationColour, 1.6);
  cairo_arc(context_, at.x, at.y, 1.6, 0.0, kTwoPi);
  FillAndStroke(kStationColour, kStationColour, 0.0);
}

void PlotPen::KnownSign(const Vector& at) const {
  constexpr double kSize = 5.5;
  Polygon({at + Vector(0.0, -kSize), at + Vector(0.87 * kSize, 0.5 * kSize),
           at + Vector(-0.87 * kSize, 0.5 * kSize)});
  FillAndStroke(kKnownColour, kWhite, 0.7);
}

void PlotPen::NewSign(const Vector& at, double radius) const {
  cairo_arc(context_, at.x, at.y, radius, 0.0, kTwoPi);
  FillAndStroke(kNewColour, kWhite, radius / 4.0);
}

void PlotPen::Ellipse(const Vector& centre, double a, double b, double azimuth) const {
  constexpr double kThinnest = 0.5;  // a degenerate one stays a visible line
  cairo_save(context_);
  cairo_translate(context_, centre.x, centre.y);
  cairo_rotate(context_, azimuth - kHalfPi);
  cairo_scale(context_, a < kThinnest ? kThinnest : a, b < kThinnest ? kThinnest : b);
  cairo_arc(context_, 0.0, 0.0, 1.0, 0.0, kTwoPi);
  cairo_restore(context_);
  FillAndStroke(kEllipseFill, kEllipseColour, 1.1);
}

void PlotPen::NorthArrow(const Vector& foot, double height) const {
  const double width = height / 5.0;
  const Vector top = foot - Vector(0.0, height);
  const Vector notch = foot - Vector(0.0, height / 4.0);
  Polygon({top, foot + Vector(width, 0.0), notch});
  FillAndStroke(kWhite, kInk, 0.8);
  Polygon({top, notch, foot - Vector(width, 0.0)});
  FillAndStroke(kInk, kInk, 0.8);
  Text("N", top - Vector(0.0, 4.0), {10.0, kInk, true, TextAlign::Centre});
}

void PlotPen::ScaleBar(const Vector& left, double length) const {
  constexpr double kHeight = 4.0;
  constexpr int kFields = 4;
  for (int i = 0; i < kFields; ++i) {
    const Vector corner = left + Vector(length * i / kFields, -kHeight);
    if (i % 2 == 0) Box(corner, {length / kFields, kHeight}, kInk, true);
  }
  Box(left - Vector(0.0, kHeight), {length, kHeight}, kInk, false);
}

}  // namespace korvel
