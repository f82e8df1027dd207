#pragma once

#include <memory>
#include <string>

#include "korvelfile/outside/services/IPxyPoint.h"

namespace File::detail {

/// A point that isn't in a file. Copies share their information until one is detached.
class PxyPoint : public Korvel::IPxyPoint {
 public:
  /// Without a name; a point with a remark, which is a radius, has the special code "R".
  PxyPoint(const Vector3d& position, const std::string& remark, const std::string& pointCode);
  ~PxyPoint() override;

  const Korvel::PointInformation& GetInformation() const override { return *information_; }
  void Detach() override;
  void SetPosition(const Vector3d& position) override { information_->position = position; }
  void SetName(const std::string& name) override { information_->name = name; }
  void SetPointCode(const std::string& code) override { information_->pointCode = code; }
  void SetSpecialCode(const std::string& code) override { information_->specialCode = code; }
  void SetRemark(const std::string& remark) override { information_->remark = remark; }
  void SetLink(void* /*link*/) override {}
  void FlagDirty() override {}

 private:
  std::shared_ptr<Korvel::PointInformation> information_;
};

/// Sets remark and special code of `point` to a radius and "R", or both to nothing.
/// @param radius metres as text; empty of a straight
void SetRadiusRemark(Korvel::IPxyPoint& point, const std::string& radius);

}  // namespace File::detail
