#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"

/// Special codes of points that have a meaning of their own.
enum GeoSpCodeId : int {
  GeoSpCodeRadius = 0,    ///< "R": the remark holds a radius in metres
  GeoSpCodeC = 1,         ///< "C": the remark holds a number
  GeoSpCodeBearing = 2,   ///< "B": the remark holds a bearing in gon
  GeoSpCodeMinusOne = 3,  ///< "-1"
  GeoSpCodeCF = 4,        ///< "CF"
  GeoSpCodeOther = 5,     ///< any other text
};

/// A special code as a number. Texts are compared exactly.
class KORVELFILE_EXPORT GeoSpCode {
 public:
  /// The code must be assigned before use.
  GeoSpCode() = default;
  GeoSpCode(GeoSpCodeId id) : id_(id) {}

  /// Takes the code of `text`; false, with `GeoSpCodeOther`, for a text that is none.
  bool operator=(const char* text);

  /// True if `text` has the same id; all texts that are no code have the same one.
  bool operator==(const char* text) const;

  operator GeoSpCodeId() const { return id_; }

  /// The text of the code, "" for any other.
  operator const char*() const;

  /// The texts of the codes in the order of their ids.
  static std::vector<std::string> GetSpCodeList();

 private:
  GeoSpCodeId id_;
};
