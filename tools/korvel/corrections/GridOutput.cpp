#include "tools/korvel/corrections/GridOutput.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <utility>
#include <vector>

#include "korvelfile/corrections/CcgFile.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/WorkFolder.h"
#include "tools/korvel/corrections/GridShape.h"

namespace {

constexpr const char* kName = "grid.ccg";

std::string StatusText(GeoStatus status) {
  return status == GeoGridMismatch
             ? "the new grid has another correction type, interpolation or spacing than the file"
             : "the file can't be read or written, is damaged, or would grow out of proportion";
}

void CopyInto(const korvel::WorkFolder& folder, const std::string& path) {
  std::error_code error;
  std::filesystem::copy_file(path, folder.Path(kName), error);
  if (error) throw korvel::InputError(path + ": can't be copied: " + error.message());
}

}  // namespace

namespace korvel {

void RequireRoom(const std::string& path, double rows, double columns, int values) {
  constexpr double kMostBytes = 2147483647.0 - 106.0;
  if (!(rows >= 1.0 && columns >= 1.0)) throw InputError(path + ": would hold no node");
  if (rows * columns * values * sizeof(float) > kMostBytes)
    throw InputError(path + ": would grow beyond 2 GiB; take a larger spacing");
}

void WriteGrid(const std::string& path, CcgInputGrid grid, bool isUpdate) {
  const WorkFolder folder(path);
  if (isUpdate) CopyInto(folder, path);
  grid.fileName = folder.Path(kName);
  CcgFile file;
  const GeoStatus status = file.CreateOrUpdateFile(grid);
  if (status != GeoSuccess) throw InputError(path + ": " + StatusText(status));
  folder.MoveToTarget(kName);
}

void PrintGrid(const std::string& path) {
  const GridShape shape = ReadGridShape(path);
  std::int64_t known = 0;
  VisitRows(shape, [&](int, const std::vector<float>& values) {
    for (auto node = values.begin(); node != values.end(); node += shape.values)
      if (std::none_of(node, node + shape.values, [](float v) { return std::isnan(v); })) ++known;
  });
  std::cout << Printable(path) << ": " << shape.rows << " x " << shape.columns << " nodes, "
            << known << " with a value\n";
}

}  // namespace korvel
