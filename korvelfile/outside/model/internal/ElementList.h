#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/model/internal/ExtentTree.h"
#include "korvelfile/outside/model/internal/Shape.h"

namespace Model {

/// The elements of our own line.
///
/// Asking is safe from any number of threads at once, as long as nobody appends.
class ElementList : public IHorizontalElementList {
 public:
  /// A gap between two elements that is no longer belongs to the one before it, metres.
  static constexpr double kGapTolerance = 1e-3;

  std::shared_ptr<IHorizontalElement> CreateArc(const Coordinate& start, const Coordinate& end,
                                                double radius, double startArc) override;
  std::shared_ptr<IHorizontalElement> CreateStraight(const Coordinate& start, const Coordinate& end,
                                                     double startArc) override;

  /// @throws LineException if the element isn't one of our own
  void Append(const std::shared_ptr<IHorizontalElement>& element, bool isKeptAsItIs) override;

  std::shared_ptr<IHorizontalElement> ElementAt(double arc) const override;
  int IndexAt(double arc) const override;
  std::shared_ptr<IHorizontalElement> GetElement(int index) const override;
  int GetElementCount() const override { return static_cast<int>(entries_.size()); }

  double GetStartArc() const { return entries_.empty() ? 0.0 : entries_.front().startArc; }
  double GetEndArc() const;

  /// The place at `arc`.
  /// @throws LineException if no element holds it
  Place PlaceAt(double arc) const;

  /// The nearest foot of `point`: a place to which it stands square, or a corner in whose outer
  /// angle it lies. Of feet equally near, the first along the line.
  ///
  /// @param foot becomes arc and offset, positive to the right
  /// @return false if there is none
  bool FindNearest(const Vector& point, Foot& foot) const;

 private:
  // Where an element follows another one, with the unit vectors of their tangents.
  struct Corner {
    Vector end;
    Vector out;
    Vector start;
    Vector in;
  };

  struct Entry {
    std::shared_ptr<IHorizontalElement> element;
    std::shared_ptr<const Shape> shape;
    double startArc;
    Corner corner;  ///< to the element before
  };

  std::size_t FindIndex(double arc) const;
  const ExtentTree& GetTree() const;
  Corner CornerTo(const Shape& next) const;
  static bool FindCorner(const Vector& point, const Entry& entry, Foot& foot);

  std::vector<Entry> entries_;
  mutable std::mutex treeMutex_;  // for making the tree, by the first thread that needs it
  mutable std::unique_ptr<const ExtentTree> ownedTree_;
  mutable std::atomic<const ExtentTree*> tree_{nullptr};
};

}  // namespace Model
