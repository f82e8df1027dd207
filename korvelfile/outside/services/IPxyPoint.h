#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/services/PointInformation.h"

namespace Korvel {

/// A point of a coordinate file, or one that may get into a file.
class KORVELFILE_EXPORT IPxyPoint {
 public:
  virtual ~IPxyPoint();

  /// Valid until the point is changed or ends.
  virtual const PointInformation& GetInformation() const = 0;

  /// Gives the point a private copy of its information: from here on changes reach neither the
  /// file nor other points.
  virtual void Detach() = 0;

  /// @name Change one part of the information each
  /// @{
  virtual void SetPosition(const Vector3d& position) = 0;
  virtual void SetName(const std::string& name) = 0;
  virtual void SetPointCode(const std::string& code) = 0;
  virtual void SetSpecialCode(const std::string& code) = 0;
  virtual void SetRemark(const std::string& remark) = 0;
  /// @}

  /// Keeps an application's own pointer with the point.
  virtual void SetLink(void* link) = 0;

  /// Tells the owner of the point that it was changed by other ways than these.
  virtual void FlagDirty() = 0;
};

}  // namespace Korvel
