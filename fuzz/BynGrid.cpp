// Makes a `.grd` file of a BYN file, with its heights in either order of bytes.
// Seeds: fuzz/seeds/byn

#include <bit>

#include "fuzz/support/Harness.h"
#include "korvelfile/corrections/GrdFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("grid.byn");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  GrdFile::BynHeightOrder(path.c_str());
  GrdFile grid;
  for (const std::endian order : {std::endian::big, std::endian::little}) {
    if (!grid.ConvertCanadaBYN(path.c_str(), order)) return 0;
  }
  const std::string target = fuzz::PathInMemory("grid.grd");
  fuzz::Require(grid.OpenFile(target.c_str()), "a file made can't be opened");
  fuzz::Require(fuzz::ReadBytes(target).size() <= 64 + 64 * size, "a file made is far too long");
  return 0;
}
