#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/Proxies.h"

class PrfFile;

namespace File {

/// A profile as a line model takes it.
class KORVELFILE_EXPORT PrfFileProxy : public Model::IProfileFileProxy {
 public:
  /// @param file must outlive this and its copies
  explicit PrfFileProxy(PrfFile& file);
  ~PrfFileProxy() override;

 private:
  int GetElementCount() const override;
  /// @throws std::range_error without an element `index`
  Model::Proxy::ProfileElement GetAt(int index) const override;

  PrfFile* file_;
};

}  // namespace File
