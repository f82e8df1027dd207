// Makes a `.grd` file of a text of numbers.
// Seeds: fuzz/seeds/grd-text

#include "fuzz/support/Harness.h"
#include "korvelfile/corrections/GrdFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("grid.txt");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  GrdFile grid;
  if (!grid.ConvertText(path.c_str(), GrdFile::kPlainMagic)) return 0;
  const std::string target = fuzz::PathInMemory("grid.grd");
  fuzz::Require(grid.OpenFile(target.c_str()), "a file made can't be opened");
  fuzz::Require(fuzz::ReadBytes(target).size() <= 64 + 64 * size, "a file made is far too long");
  return 0;
}
