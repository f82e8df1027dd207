#pragma once

#include <string>

#include "tools/korvel/PlotPen.h"

namespace korvel {

class PlotMap;

/// "250 m", "2 km", "0.5 mm".
std::string LengthText(double metres);

/// Writes the panel beside a map, line by line from the top. Texts that are too long are cut.
class PlotColumn {
 public:
  PlotColumn(const PlotPen& pen, const PlotMap& map);

  void Title(const std::string& text);
  void Subtitle(const std::string& text);
  void Head(const std::string& text);
  /// A name to the left, a figure to the right.
  void Fact(const std::string& name, const std::string& value);
  /// Small print.
  void Small(const std::string& text);

  /// One row of a legend: `draw` gets the middle of the column of signs.
  void Sign(const std::string& text, const auto& draw) {
    y_ += kLineHeight * 1.1;
    draw(Vector(left_ + kSignWidth / 2.0, y_ - 3.0));
    pen_.Text(text, {left_ + kSignWidth + 6.0, y_}, TextStyle{kTextSize, kInk});
  }

  /// A round length, with its text behind `text`: `draw` gets its left end and its points.
  /// @param scale points per metre
  void Bar(const std::string& text, double scale, const auto& draw) {
    const double length = RoundBar(scale);
    BarText(text + ", " + LengthText(length));
    draw(Vector(left_, y_ + 2.0), length * scale);
  }

  /// Room of the whole width and a height of so many points: `draw` gets its upper left corner and
  /// its width.
  void Room(double height, const auto& draw) {
    y_ += kLineHeight;
    draw(Vector(left_, y_), width_);
    y_ += height;
  }

  /// The scale bar of the map.
  void MapScale(const PlotMap& map);

  /// A length of corrections or residuals, shown at `scale` points per metre.
  void VectorScale(const std::string& text, double scale, const Colour& colour);

  static constexpr double kSignWidth = 34.0;  ///< of the column of signs, points

 private:
  static constexpr double kLineHeight = 13.5;
  static constexpr double kTextSize = 8.5;

  static double RoundBar(double scale);
  void BarText(const std::string& text);

  const PlotPen& pen_;
  double left_;
  double width_;
  double y_;
};

/// Draws the north arrow at the foot of the panel.
void DrawNorthArrow(const PlotPen& pen, const PlotMap& map);

}  // namespace korvel
