#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/Proxies.h"

class SkvFile;

namespace File {

/// A camber file as a line model takes it: slopes are ratios.
class KORVELFILE_EXPORT SkvFileProxy : public Model::ICamberFileProxy {
 public:
  /// @param file must outlive this and its copies
  explicit SkvFileProxy(SkvFile& file);
  ~SkvFileProxy() override;

 private:
  int GetElementCount() const override;
  /// All zero without an element `index`.
  Model::Proxy::CamberSlopeElement GetAt(int index) const override;

  SkvFile* file_;
};

}  // namespace File
