#pragma once

#include "korvelfile/alignments/TPrf.h"
#include "korvelfile/outside/base/String.h"

/// One line of the check report of a profile: what an element has and what it should have.
///
/// Differences are computed less stored, in metres and ratios. A plain value, all zero when new.
class TPrfCtrl {
 public:
  /// How the geometry between an element's start and the next one's was found.
  enum Status {
    kFound = 0,
    /// The chord is longer than the diameter, the curve ends vertically, or a number isn't finite.
    kNoCurve = 1,
  };

  const String& GetElemNo() const { return elemNo_; }  ///< Element number.
  double GetdLength() const { return dLength_; }       ///< Difference of the lengths, metres.
  double GetdSlope() const { return dSlope_; }         ///< Difference of the slopes at the start.
  double GetmdTP() const { return mdTP_; }             ///< Break: slope before less slope behind.
  int GetComment() const { return comment_; }          ///< A `Status`.
  int GetPos() const { return pos_; }                  ///< Index of the element in the file.

  /// The element as the check would correct it. Its own element number is empty.
  const TPrf& GetElement() const { return element_; }
  TPrf& GetElement() { return element_; }  ///< The same, to be changed.

  void SetElemNo(const String& elemNo) { elemNo_ = elemNo; }    ///< See `GetElemNo`.
  void SetdLength(double dLength) { dLength_ = dLength; }       ///< See `GetdLength`.
  void SetdSlope(double dSlope) { dSlope_ = dSlope; }           ///< See `GetdSlope`.
  void SetdTP(double mdTP) { mdTP_ = mdTP; }                    ///< See `GetmdTP`.
  void SetComment(int comment) { comment_ = comment; }          ///< See `GetComment`.
  void SetPos(int pos) { pos_ = pos; }                          ///< See `GetPos`.
  void SetElement(const TPrf& element) { element_ = element; }  ///< See `GetElement`.

 private:
  String elemNo_;
  double dLength_ = 0.0;
  double dSlope_ = 0.0;
  double mdTP_ = 0.0;
  int comment_ = kFound;
  int pos_ = 0;
  TPrf element_;
};
