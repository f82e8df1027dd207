#pragma once

#include <memory>
#include <optional>
#include <string>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/services/IPxyPoint.h"

class PointDataItem;

namespace internal {

/// A point of a coordinate file. What it tells of the point is as it was when it was first asked
/// for, and as this object changed it since.
class FilePoint : public Korvel::IPxyPoint {
 public:
  /// @param point must outlive this object, unless it is detached
  FilePoint(std::shared_ptr<PxyCoordinateFile> file, PointDataItem& point);
  ~FilePoint() override;

  const Korvel::PointInformation& GetInformation() const override;
  void Detach() override;
  void SetPosition(const Vector3d& position) override;
  void SetName(const std::string& name) override;
  void SetPointCode(const std::string& code) override;
  void SetSpecialCode(const std::string& code) override;
  void SetRemark(const std::string& remark) override;
  void SetLink(void* link) override;
  void FlagDirty() override;

 private:
  Korvel::PointInformation& Information() const;

  std::shared_ptr<PxyCoordinateFile> file_;
  PointDataItem* point_;  ///< null of a detached one
  mutable std::optional<Korvel::PointInformation> information_;
};

}  // namespace internal
