#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "korvelfile/outside/base/Vector.h"

namespace korvel {

/// Finds room for names beside the signs of a map.
///
/// The map is a raster of small cells. A cell holds what must not be covered (signs, names) or what
/// should not be (lines); the cost of a name doesn't grow with the number of others.
class PlotLabels {
 public:
  /// @param corner, size of the map on the page, points
  PlotLabels(const Vector& corner, const Vector& size);

  /// Marks a sign, which no name covers.
  void AddSign(const Vector& at, double radius);

  /// Marks a line, which names avoid where they can.
  void AddLine(const Vector& from, const Vector& to);

  /// Marks an arrow, which names avoid even more.
  void AddArrow(const Vector& from, const Vector& to);

  /// Finds the best free place round a sign, and takes it.
  /// @param at     centre of the sign
  /// @param size   of the name, points
  /// @param gap    between the centre of the sign and the name, points
  /// @param isMust takes the least covered place where none is free of signs and arrows
  /// @return the left end of the base line, or nothing
  std::optional<Vector> Place(const Vector& at, const Vector& size, double gap, bool isMust);

 private:
  struct Cells {
    int left, top, right, bottom;  ///< inclusive; may lie outside of the raster
  };
  static constexpr unsigned char kSign = 1;
  static constexpr unsigned char kLine = 2;
  static constexpr unsigned char kArrow = 4;

  Cells CellsOf(const Vector& corner, const Vector& size) const;
  bool IsInside(const Cells& cells) const;
  void Mark(const Cells& cells, unsigned char what);
  void MarkAlong(const Vector& from, const Vector& to, unsigned char what);
  static int CostOf(unsigned char content);
  int Cost(const Cells& cells) const;
  unsigned char& At(int column, int row);
  unsigned char At(int column, int row) const;

  Vector corner_;
  int columns_;
  int rows_;
  std::vector<unsigned char> raster_;
};

}  // namespace korvel
