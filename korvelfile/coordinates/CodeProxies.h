/// @file
/// The proxies that change several texts of a point's code triple in one statement:
///
///     point.SetPointCode(a).AndSpecialCode(b).AndRemark(c);
///
/// The change takes effect, with a single look-up of the shared triple, at the end of the
/// statement. The point must outlive it.
#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CodesAndRemark.h"
#include "korvelfile/coordinates/SharedCodes.h"

namespace detail {

/// A working copy of a triple that replaces it at the end of its life.
class KORVELFILE_EXPORT CodesChange {
 public:
  CodesChange(const CodesChange&) = delete;
  CodesChange& operator=(const CodesChange&) = delete;

 protected:
  explicit CodesChange(SharedCodes& codes) : codes_(codes), work_(codes.Get()) {}
  ~CodesChange() { codes_ = work_; }

  SharedCodes& codes_;
  CodesAndRemark work_;
};

/// Last steps of a statement; each holds the working copy of the proxy that gave it.
class LastRemark {
 public:
  explicit LastRemark(CodesAndRemark& work) : work_(work) {}
  void AndRemark(const std::string& text) { work_.SetRemark(text); }

 private:
  CodesAndRemark& work_;
};

class LastSpecialCode {
 public:
  explicit LastSpecialCode(CodesAndRemark& work) : work_(work) {}
  void AndSpecialCode(const std::string& text) { work_.SetSpecialCode(text); }

 private:
  CodesAndRemark& work_;
};

class LastPointCode {
 public:
  explicit LastPointCode(CodesAndRemark& work) : work_(work) {}
  void AndPointCode(const std::string& text) { work_.SetPointCode(text); }

 private:
  CodesAndRemark& work_;
};

/// What `PointDataItem::SetPointCode` gives.
class PointCodeProxy : public CodesChange {
 public:
  using InnerProxy1 = LastRemark;
  using InnerProxy2 = LastSpecialCode;

  PointCodeProxy(SharedCodes& codes, const std::string& text) : CodesChange(codes) {
    work_.SetPointCode(text);
  }
  InnerProxy1 AndSpecialCode(const std::string& text) {
    work_.SetSpecialCode(text);
    return InnerProxy1(work_);
  }
  InnerProxy2 AndRemark(const std::string& text) {
    work_.SetRemark(text);
    return InnerProxy2(work_);
  }
};

/// What `PointDataItem::SetSpecialCode` gives.
class SpecialCodeProxy : public CodesChange {
 public:
  using InnerProxy1 = LastRemark;
  using InnerProxy2 = LastPointCode;

  SpecialCodeProxy(SharedCodes& codes, const std::string& text) : CodesChange(codes) {
    work_.SetSpecialCode(text);
  }
  InnerProxy1 AndPointCode(const std::string& text) {
    work_.SetPointCode(text);
    return InnerProxy1(work_);
  }
  InnerProxy2 AndRemark(const std::string& text) {
    work_.SetRemark(text);
    return InnerProxy2(work_);
  }
};

/// What `PointDataItem::SetRemark` gives.
class RemarkProxy : public CodesChange {
 public:
  using InnerProxy1 = LastSpecialCode;
  using InnerProxy2 = LastPointCode;

  RemarkProxy(SharedCodes& codes, const std::string& text) : CodesChange(codes) {
    work_.SetRemark(text);
  }
  InnerProxy1 AndPointCode(const std::string& text) {
    work_.SetPointCode(text);
    return InnerProxy1(work_);
  }
  InnerProxy2 AndSpecialCode(const std::string& text) {
    work_.SetSpecialCode(text);
    return InnerProxy2(work_);
  }
};

}  // namespace detail
