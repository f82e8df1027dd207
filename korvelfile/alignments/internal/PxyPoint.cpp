#include "korvelfile/alignments/internal/PxyPoint.h"

namespace File::detail {

namespace {

const char* CodeOf(const std::string& radius) { return radius.empty() ? "" : "R"; }

}  // namespace

PxyPoint::PxyPoint(const Vector3d& position, const std::string& remark,
                   const std::string& pointCode)
    : information_(std::make_shared<Korvel::PointInformation>(
          Korvel::PointInformation{position, {}, pointCode, CodeOf(remark), remark})) {}

PxyPoint::~PxyPoint() = default;

void PxyPoint::Detach() {
  information_ = std::make_shared<Korvel::PointInformation>(*information_);
}

void SetRadiusRemark(Korvel::IPxyPoint& point, const std::string& radius) {
  point.SetRemark(radius);
  point.SetSpecialCode(CodeOf(radius));
}

}  // namespace File::detail
