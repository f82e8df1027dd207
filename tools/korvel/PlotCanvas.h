#pragma once

#include <string>

#include <cairo.h>

namespace korvel {

/// A page to draw on, kept in memory until it is written as a file.
class PlotCanvas {
 public:
  /// @param extension ".svg", ".pdf" or ".png"
  /// @param width, height in points, 1/72 inch
  PlotCanvas(const std::string& extension, double width, double height);
  ~PlotCanvas();
  PlotCanvas(const PlotCanvas&) = delete;
  PlotCanvas& operator=(const PlotCanvas&) = delete;

  /// To draw with, in points from the upper left corner; owned by the canvas.
  cairo_t* Context() const { return context_; }

  /// Ends the drawing and puts the file in place whole.
  /// @throws InputError if that fails
  void Write(const std::string& path);

 private:
  bool isPng_;
  std::string bytes_;
  cairo_surface_t* surface_;
  cairo_t* context_;
};

}  // namespace korvel
