#include "korvelfile/alignments/SkvFileAssociatedFiles.h"

#include "korvelfile/alignments/internal/SameBasename.h"

namespace File::Association {

SkvFileAssociatedFiles::~SkvFileAssociatedFiles() = default;

std::vector<AssociatedFile> SkvFileAssociatedFiles::GetAssociatedFiles(const std::string& path,
                                                                       bool /*flag*/) const {
  return SameBasename(path, {"prf", "lin"});
}

}  // namespace File::Association
