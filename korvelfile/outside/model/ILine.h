/// @file
/// What the library asks of a line model: a horizontal alignment that stations points and gives
/// points of stations. An application may bring its own behind these interfaces.
///
/// Objects are shared; an element stays valid as long as somebody holds it.
#pragma once

#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/ThrowableErrorCode.h"

namespace Model {

class IHorizontalElementVisitor;
class IHorizontalGeometryVisitor;

/// Position in the coordinates of a line model. North comes first.
struct Coordinate {
  double Y = 0.0;  ///< north, or the height in a cross-section, metres
  double X = 0.0;  ///< east, or the side in a cross-section, metres
  double Z = 0.0;  ///< height, metres
};

/// Position relative to a line.
struct LineStation {
  double Arc = 0.0;     ///< along the line, metres
  double Offset = 0.0;  ///< distance from the line, metres; positive to the right
  double Height = 0.0;  ///< of the line there, metres
};

/// Element of a horizontal alignment.
class KORVELFILE_EXPORT IHorizontalElement {
 public:
  virtual ~IHorizontalElement();

  /// @name Where it begins and ends
  /// @{
  virtual double GetStartArc() const = 0;
  virtual double GetEndArc() const = 0;
  virtual Coordinate GetEndPoint() const = 0;
  virtual Coordinate GetStartPoint() const = 0;
  /// @}

  /// Arc and offset of a point, of which only Y and X count.
  /// @return true if the point has its foot on this element; else `result` is as it was
  virtual ThrowableErrorCode<bool> Station(const Coordinate& point, LineStation& result) const = 0;

  /// Calls the operation of `visitor` for elements of this kind.
  virtual void Accept(const std::shared_ptr<IHorizontalElementVisitor>& visitor) = 0;
};

/// Element with a curvature. Radii are signed, positive turns right; 0 is infinite.
class KORVELFILE_EXPORT IHorizontalCurve : public IHorizontalElement {
 public:
  virtual double GetRadius() const = 0;     ///< At the start, metres.
  virtual double GetEndRadius() const = 0;  ///< At the end, metres.
};

/// Elements of a horizontal alignment, in their order.
class KORVELFILE_EXPORT IHorizontalElementList {
 public:
  virtual ~IHorizontalElementList();

  /// A circular arc of at most half a circle, not in the list yet.
  ///
  /// @param radius   signed, positive turns right
  /// @param startArc where it is to begin along the line, metres
  /// @throws LineException if there is no such arc
  virtual std::shared_ptr<IHorizontalElement> CreateArc(const Coordinate& start,
                                                        const Coordinate& end, double radius,
                                                        double startArc) = 0;

  /// A straight, not in the list yet.
  virtual std::shared_ptr<IHorizontalElement> CreateStraight(const Coordinate& start,
                                                             const Coordinate& end,
                                                             double startArc) = 0;

  /// Makes `element` the last one. The line's end moves on with it.
  /// @param isKeptAsItIs true: where the element stands isn't fitted to the end of the line
  virtual void Append(const std::shared_ptr<IHorizontalElement>& element, bool isKeptAsItIs) = 0;

  /// The element that holds `arc`.
  /// @throws LineException if none does
  virtual std::shared_ptr<IHorizontalElement> ElementAt(double arc) const = 0;

  /// Number of the element that holds `arc`, from 0.
  /// @throws LineException if none does
  virtual int IndexAt(double arc) const = 0;

  /// Element number `index`, from 0.
  /// @throws LineException if there is none
  virtual std::shared_ptr<IHorizontalElement> GetElement(int index) const = 0;

  virtual int GetElementCount() const = 0;  ///< How many there are.
};

/// Base of the visitors.
class KORVELFILE_EXPORT ILineVisitor {
 public:
  virtual ~ILineVisitor();
};

/// Visitor of a horizontal alignment.
class KORVELFILE_EXPORT IHorizontalGeometryVisitor : public ILineVisitor {
 public:
  ~IHorizontalGeometryVisitor() override;

  /// Called with the elements of an alignment.
  virtual void VisitElementList(const std::shared_ptr<IHorizontalElementList>& list) = 0;
};

/// Visitor of elements, by their kind. Held by a `std::shared_ptr`.
class KORVELFILE_EXPORT IHorizontalElementVisitor : public IHorizontalGeometryVisitor {
 public:
  ~IHorizontalElementVisitor() override;

  /// @name Called by the elements of each kind
  /// @{
  virtual void VisitStraight(const std::shared_ptr<IHorizontalElement>& element) = 0;
  virtual void VisitCircularArc(const std::shared_ptr<IHorizontalCurve>& element) = 0;
  virtual void VisitClothoid(const std::shared_ptr<IHorizontalCurve>& element) = 0;
  virtual void VisitPoint(const std::shared_ptr<IHorizontalElement>& element) = 0;
  virtual void VisitOther(const std::shared_ptr<IHorizontalElement>& element) = 0;
  /// @}
};

/// Horizontal alignment of a line.
class KORVELFILE_EXPORT IHorizontalAlignment {
 public:
  virtual ~IHorizontalAlignment();

  /// Never empty.
  virtual std::shared_ptr<IHorizontalElementList> GetElements() const = 0;

  /// Calls `VisitElementList` with the elements.
  virtual void Accept(const std::shared_ptr<IHorizontalGeometryVisitor>& visitor) = 0;
};

/// A line in the plane, with a height along it. All operations may throw `LineException`.
class KORVELFILE_EXPORT ILine {
 public:
  virtual ~ILine();

  /// Where a point, of which only Y and X count, stands relative to the line.
  /// @throws LineException for a point without a foot on the line
  virtual LineStation Station(const Coordinate& point) const = 0;

  /// The inverse of `Station`; Z is the height of the line there.
  /// @throws LineException for an arc beyond the line
  virtual Coordinate PointAt(double arc, double offset) const = 0;

  virtual double GetStartArc() const = 0;  ///< Where the line begins.
  /// Where the line ends; of an empty line, where the first element is to begin.
  virtual double GetEndArc() const = 0;
  virtual double GetTotalLength() const = 0;  ///< From start to end.

  /// Mathematical angle of the tangent, radians.
  /// @throws LineException for an arc beyond the line
  virtual double DirectionAt(double arc) const = 0;

  /// Never empty.
  virtual std::shared_ptr<IHorizontalAlignment> GetHorizontalAlignment() const = 0;
};

/// Makes lines.
class KORVELFILE_EXPORT ILineFactory {
 public:
  virtual ~ILineFactory();

  /// A new line without elements.
  virtual std::shared_ptr<ILine> CreateLine() = 0;
};

}  // namespace Model
