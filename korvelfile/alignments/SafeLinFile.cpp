#include "korvelfile/alignments/SafeLinFile.h"

#include <stdexcept>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/outside/base/Text.h"

namespace File {

SafeLinFile::SafeLinFile(const std::string& path) : file_(std::make_shared<LinFile>()) {
  if (file_->Open(path.c_str()) != 0) throw std::runtime_error("Could not load " + path);
}

SafeLinFile::SafeLinFile(const std::wstring& path) : SafeLinFile(Narrow(path)) {}

}  // namespace File
