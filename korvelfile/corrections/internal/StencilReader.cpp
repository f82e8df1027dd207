#include "korvelfile/corrections/internal/StencilReader.h"

#include <cstddef>

#include "korvelfile/outside/base/GeoFile.h"

bool StencilReader::Read(const std::string& path, const StencilPlace& place, unsigned char* bytes) {
  GeoFile file;
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, false) != 0) return false;
  for (int row = 0; row < place.rows; ++row) {
    const auto size = static_cast<std::size_t>(place.size);
    if (_FileIO::SeekFile(file, place.offset + row * place.stride) != 0) return false;
    if (_FileIO::ReadFile(file, bytes + static_cast<std::size_t>(row) * size, size) != 0)
      return false;
  }
  return true;
}
