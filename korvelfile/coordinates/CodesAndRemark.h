#pragma once

#include <string>

#include "korvelfile/Export.h"

namespace detail {

/// The three short texts of a point.
class KORVELFILE_EXPORT CodesAndRemark {
 public:
  CodesAndRemark() = default;
  CodesAndRemark(const std::string& pointCode, const std::string& specialCode,
                 const std::string& remark)
      : pointCode_(pointCode), specialCode_(specialCode), remark_(remark) {}

  const std::string& GetPointCode() const { return pointCode_; }
  const std::string& GetSpecialCode() const { return specialCode_; }
  const std::string& GetRemark() const { return remark_; }
  void SetPointCode(const std::string& text) { pointCode_ = text; }
  void SetSpecialCode(const std::string& text) { specialCode_ = text; }
  void SetRemark(const std::string& text) { remark_ = text; }

  /// The remark as a number: blanks don't count, and of "." and "," the one that stands last is the
  /// decimal mark, the other a thousands separator. 0 if it isn't a number.
  double GetRemarkAsFloat() const;

  friend bool operator==(const CodesAndRemark&, const CodesAndRemark&) = default;

 private:
  std::string pointCode_;
  std::string specialCode_;
  std::string remark_;
};

}  // namespace detail
