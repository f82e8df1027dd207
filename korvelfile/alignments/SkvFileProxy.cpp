#include "korvelfile/alignments/SkvFileProxy.h"

#include "korvelfile/alignments/SkvFile.h"
#include "korvelfile/outside/base/Text.h"

namespace File {

SkvFileProxy::SkvFileProxy(SkvFile& file) : file_(&file) {}
SkvFileProxy::~SkvFileProxy() = default;

int SkvFileProxy::GetElementCount() const {
  int count = 0;
  file_->GetTotalElements(count);
  return count;
}

Model::Proxy::CamberSlopeElement SkvFileProxy::GetAt(int index) const {
  Model::Proxy::CamberSlopeElement e;
  String name;
  file_->GetElement(index, name, e.Section, e.Slope1, e.Slope2);
  e.Name = Widen(name);
  return e;
}

}  // namespace File
