#include "korvelfile/alignments/LinFileAssociatedFiles.h"

#include "korvelfile/alignments/internal/SameBasename.h"

namespace File::Association {

LinFileAssociatedFiles::~LinFileAssociatedFiles() = default;

std::vector<AssociatedFile> LinFileAssociatedFiles::GetAssociatedFiles(const std::string& path,
                                                                       bool /*flag*/) const {
  return SameBasename(path, {"prf", "skv"});
}

}  // namespace File::Association
