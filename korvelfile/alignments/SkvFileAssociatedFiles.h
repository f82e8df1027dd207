#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/AssociatedFiles.h"

namespace File::Association {

/// The profile and the line file, in this order, that belong with a camber file.
class KORVELFILE_EXPORT SkvFileAssociatedFiles : public IAssociatedFiles {
 public:
  ~SkvFileAssociatedFiles() override;

  /// Both bear the name of `path`, with the extensions "prf" and "lin".
  std::vector<AssociatedFile> GetAssociatedFiles(const std::string& path, bool flag) const override;
};

}  // namespace File::Association
