#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/Proxies.h"

class LinFile;

namespace File {

/// A line file as a line model takes it: bearings are mathematical angles in radians.
class KORVELFILE_EXPORT LinFileProxy : public Model::ILineFileProxy {
 public:
  /// @param file must outlive this and its copies
  explicit LinFileProxy(LinFile& file);
  ~LinFileProxy() override;

 private:
  int GetElementCount() const override;
  /// @throws std::range_error without an element `index`
  Model::Proxy::LineElement GetAt(int index) const override;

  LinFile* file_;
};

}  // namespace File
