#include "korvelfile/alignments/LinFileProxy.h"

#include <stdexcept>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Text.h"

namespace File {

LinFileProxy::LinFileProxy(LinFile& file) : file_(&file) {}
LinFileProxy::~LinFileProxy() = default;

int LinFileProxy::GetElementCount() const { return static_cast<int>(file_->GetTotalElements()); }

Model::Proxy::LineElement LinFileProxy::GetAt(int index) const {
  if (index < 0 || index >= GetElementCount())
    throw std::range_error("File::LinFileProxy::GetAt: Error! Index out of range.");
  Model::Proxy::LineElement e;
  std::string name;
  file_->GetElement(static_cast<std::size_t>(index), name, e.Start.y, e.Start.x, e.Section,
                    e.Radius, e.Bearing, e.Parameter, e.EndRadius, e.Length);
  e.Name = Widen(name);
  e.Bearing = GonToBearing(e.Bearing);
  return e;
}

}  // namespace File
