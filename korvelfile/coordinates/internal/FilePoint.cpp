#include "korvelfile/coordinates/internal/FilePoint.h"

#include <utility>

#include "korvelfile/coordinates/PointDataItem.h"

namespace internal {

FilePoint::FilePoint(std::shared_ptr<PxyCoordinateFile> file, PointDataItem& point)
    : file_(std::move(file)), point_(&point) {}

FilePoint::~FilePoint() = default;

Korvel::PointInformation& FilePoint::Information() const {
  if (!information_) {
    information_ = {*point_, point_->NameText(), point_->GetPointCode(), point_->GetSpecialCode(),
                    point_->GetRemark()};
  }
  return *information_;
}

const Korvel::PointInformation& FilePoint::GetInformation() const { return Information(); }

void FilePoint::Detach() {
  Information();
  point_ = nullptr;
}

void FilePoint::SetPosition(const Vector3d& position) {
  Information().position = position;
  if (!point_) return;
  *point_ = position;
  file_->ForgetExtent();
  FlagDirty();
}

void FilePoint::SetName(const std::string& name) {
  Information().name = name;
  if (!point_) return;
  point_->SetName(name);
  FlagDirty();
}

void FilePoint::SetPointCode(const std::string& code) {
  Information().pointCode = code;
  if (!point_) return;
  point_->SetPointCode(code);
  FlagDirty();
}

void FilePoint::SetSpecialCode(const std::string& code) {
  Information().specialCode = code;
  if (!point_) return;
  point_->SetType(PointDataItemType::Ordinary);
  point_->SetSpecialCode(code);
  FlagDirty();
}

void FilePoint::SetRemark(const std::string& remark) {
  Information().remark = remark;
  if (!point_) return;
  point_->SetRemark(remark);
  FlagDirty();
}

void FilePoint::SetLink(void* link) {
  if (point_) point_->SetLink(link);
}

void FilePoint::FlagDirty() {
  if (point_) file_->FlagDirty();
}

}  // namespace internal
