#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/AssociatedFiles.h"

namespace File::Association {

/// The profile and the camber file, in this order, that belong with a line file.
class KORVELFILE_EXPORT LinFileAssociatedFiles : public IAssociatedFiles {
 public:
  ~LinFileAssociatedFiles() override;

  /// Both bear the name of `path`, with the extensions "prf" and "skv".
  std::vector<AssociatedFile> GetAssociatedFiles(const std::string& path, bool flag) const override;
};

}  // namespace File::Association
