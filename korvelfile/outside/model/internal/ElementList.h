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
/// Elements without a length are kept, but have no place of their own: the direction of such a one,
/// which closes many a line, means nothing.
///
/// Asking is safe from any number of threads at once, as long as nobody appends.
class ElementList final : public IHorizontalElementList {
 public:
  std::shared_ptr<IHorizontalElement> CreateArc(const Coordinate& start, const Coordinate& end,
                                                double radius, double startArc) override;
  std::shared_ptr<IHorizontalElement> CreateStraight(const Coordinate& start, const Coordinate& end,
                                                     double startArc) override;

  /// @throws LineException if the element isn't one of our own, or begins before the one before it
  void Append(const std::shared_ptr<IHorizontalElement>& element, bool isKeptAsItIs) override;

  std::shared_ptr<IHorizontalElement> ElementAt(double arc) const override;
  int IndexAt(double arc) const override;
  std::shared_ptr<IHorizontalElement> GetElement(int index) const override;
  int GetElementCount() const override { return static_cast<int>(elements_.size()); }

  double GetStartArc() const;                             ///< 0 without elements.
  double GetEndArc() const;                               ///< 0 without elements.
  double GetTotalLength() const { return totalLength_; }  ///< Of all elements.

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
  // An element that has a length.
  struct Piece {
    std::shared_ptr<const Shape> shape;
    double startArc;
    std::size_t index;  // among all elements
  };

  class Nearest;

  const Piece& PieceAt(double arc) const;
  void OfferFeet(const Vector& point, std::size_t i, Nearest& nearest) const;
  bool FindCorner(const Vector& point, std::size_t i, Foot& foot) const;
  const ExtentTree& GetTree() const;

  std::vector<std::shared_ptr<IHorizontalElement>> elements_;
  std::vector<Piece> pieces_;
  double totalLength_ = 0.0;
  mutable std::mutex treeMutex_;  // for making the tree, by the first thread that needs it
  mutable std::unique_ptr<const ExtentTree> ownedTree_;
  mutable std::atomic<const ExtentTree*> tree_{nullptr};
};

}  // namespace Model
