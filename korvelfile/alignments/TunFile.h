#pragma once

#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/alignments/TunElement.h"
#include "korvelfile/outside/base/Vector.h"
#include "korvelfile/outside/model/ILine.h"

/// The outline of a tunnel's cross-section, a chain of straights and arcs, stored as the points of
/// a coordinate file.
///
/// Metres; x is the side, y the height. The chain is a line of the given model, which stations
/// points along the wall: the arc is the length along the outline, the offset the distance from it,
/// positive to the left of the chain's direction. Copies share their line. One that was moved from
/// may only be assigned or destroyed. One thread at a time.
class KORVELFILE_EXPORT TunFile {
 public:
  /// An empty outline.
  /// @param factory of the line model, not null
  explicit TunFile(std::shared_ptr<Model::ILineFactory> factory);
  ~TunFile();
  TunFile(const TunFile&);  ///< Shares the line.
  TunFile(TunFile&&) noexcept;
  TunFile& operator=(const TunFile&);  ///< Shares the line.
  TunFile& operator=(TunFile&&) noexcept;

  /// Adds an element at the end of the outline.
  /// @throws Model::LineException if the line model refuses it, as an arc whose ends are farther
  ///   apart than its diameter
  void AddElement(const TunElement& element);

  /// Makes the outline empty and without a centre. Copies keep theirs.
  void Flush();

  int GetNumNodes() const;  ///< Number of elements.

  /// Gives an element; what the line model can't tell stays as it was.
  void GetElement(int index, TunElement& element) const;

  /// Marks the start of an element as the centre of the tunnel. Without such an element the index
  /// is kept, with the arc 0.
  void SetTcIndex(int index);
  int GetTcIndex() const { return tcIndex_; }             ///< Element at the centre, -1 if none.
  double GetTcArcLength() const { return tcArcLength_; }  ///< Arc of the centre, 0 if none.

  double GetStartArc() const;     ///< Arc at which the outline begins.
  double GetEndArc() const;       ///< Arc at which it ends.
  double GetTotalLength() const;  ///< From begin to end.

  /// Point and direction of the outline at an arc, counted from the start of the outline.
  ///
  /// @param direction mathematical angle, radians
  /// @return false, with at most `position` changed, beyond the outline
  bool GetDirAndPosFromArc(double arc, Vector* position, double* direction) const;

  /// The point at an arc, counted from the start of the outline, and an offset.
  /// @return false, with the point unchanged, if there is none
  bool GetSideAndHeight(double arc, double offset, double& side, double& height) const;

  /// Offset and arc of a point, the arc counted from the tunnel centre.
  /// @return false, with both DBL_MAX, for a point without a foot on the outline
  bool GetTunOffsAndArcLen(const double& side, const double& height, double& offset,
                           double& arcLength) const;

  /// The same, with the foot on the element at `preferredArc`, counted from the start of the
  /// outline, if there is one on it: a point near a corner stays with the element of choice.
  bool GetTunOffsAndArcLenAtPreferredElement(const double& side, const double& height,
                                             const double& preferredArc, double& offset,
                                             double& arcLength) const;

  /// Makes `result` the outline that runs at `offset` beside this one, without a centre.
  /// @return false, with an empty `result`, if there is none
  bool GetOffsetSection(double offset, TunFile& result) const;

  /// Reads the points of a coordinate file as the nodes of the outline, in place of this one.
  ///
  /// A point with the special code "R" begins an arc of the radius that its remark holds. The last
  /// point of code "TC", but for the end of the outline, is the centre; without one the centre
  /// stays as it was.
  /// @return 0; the result of the coordinate file if it can't be read; -9, with a system message
  ///   and the elements so far, if the line model refuses an element
  int Open(const char* name);

  /// Writes the nodes as points, without the mark of the centre, in place of the file.
  /// @return 0, or the result of the coordinate file, whose old content stays then
  int Save(const char* name);

 private:
  std::shared_ptr<Model::IHorizontalElementList> GetElements() const;
  bool FillIn(const Model::LineStation& station, double& offset, double& arcLength) const;

  std::shared_ptr<Model::ILineFactory> factory_;
  std::shared_ptr<Model::ILine> line_;
  int tcIndex_ = -1;
  double tcArcLength_ = 0.0;
};
