#include "korvelfile/alignments/PrfFileProxy.h"

#include <stdexcept>

#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/outside/base/Text.h"

namespace File {

PrfFileProxy::PrfFileProxy(PrfFile& file) : file_(&file) {}
PrfFileProxy::~PrfFileProxy() = default;

int PrfFileProxy::GetElementCount() const {
  int count = 0;
  file_->GetTotalElements(count);
  return count;
}

Model::Proxy::ProfileElement PrfFileProxy::GetAt(int index) const {
  if (index < 0 || index >= GetElementCount())
    throw std::range_error("File::PrfFileProxy::GetAt: Error! Index out of range.");
  Model::Proxy::ProfileElement e;
  String name;
  file_->GetElement(index, name, e.Section, e.Z, e.Slope, e.Radius, e.Length, e.OffsL, e.OffsR);
  e.Name = Widen(name);
  return e;
}

}  // namespace File
