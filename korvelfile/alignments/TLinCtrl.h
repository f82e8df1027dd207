#pragma once

#include <string>

#include "korvelfile/alignments/TLin.h"

/// One line of the check report of a line file: what an element has and what it should have.
///
/// Differences are computed less stored, in metres and gon. A plain value, all zero when new.
class TLinCtrl {
 public:
  /// How the geometry between an element's start and the next one's was found.
  enum Status {
    kFound = 0,            ///< The element reaches the next one.
    kChordTooLong = 1,     ///< Arc: the next start lies farther away than the diameter.
    kEqualRadii = 2,       ///< Clothoid of equal radii, which doesn't exist.
    kCannotBeReached = 3,  ///< The next start can't be reached, or a number isn't finite.
  };

  const std::string& GetElemNo() const { return elemNo_; }  ///< Number of the reported element.
  int GetComment() const { return comment_; }               ///< A `Status`.
  double GetdLength() const { return dLength_; }            ///< Of the length, metres.
  double GetdBearing() const { return dBearing_; }          ///< Of the start's bearing, gon.
  double GetmdTP() const { return mdTP_; }                  ///< Kink at the start, gon.
  int GetPos() const { return pos_; }                       ///< Index of the element in the file.

  /// The element as the check would correct it. Its own element number is empty.
  const TLin& GetElement() const { return element_; }
  TLin& GetElement() { return element_; }  ///< The same, to be changed.

  void SetElemNo(const std::string& elemNo) { elemNo_ = elemNo; }  ///< See `GetElemNo`.
  void SetComment(int comment) { comment_ = comment; }             ///< See `GetComment`.
  void SetdLength(double dLength) { dLength_ = dLength; }          ///< See `GetdLength`.
  void SetdBearing(double dBearing) { dBearing_ = dBearing; }      ///< See `GetdBearing`.
  void SetdTP(double mdTP) { mdTP_ = mdTP; }                       ///< See `GetmdTP`.
  void SetPos(int pos) { pos_ = pos; }                             ///< See `GetPos`.
  void SetElement(const TLin& element) { element_ = element; }     ///< See `GetElement`.

 private:
  std::string elemNo_;
  int comment_ = kFound;
  double dLength_ = 0.0;
  double dBearing_ = 0.0;
  double mdTP_ = 0.0;
  int pos_ = 0;
  TLin element_;
};
