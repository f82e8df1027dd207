#include "tools/korvel/KnownPoints.h"

#include <algorithm>
#include <cstddef>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"

namespace {

constexpr std::size_t kWarningsShown = 10;
constexpr std::string_view kDuplicateMark = "_x";

// What keeps `path` from being loaded; empty if it can be.
std::string LoadFault(const std::string& path, korvel::LibraryMessages& messages) {
  if (!korvel::IsCoordinateFile(path))
    return path + ": not a coordinate file: known points come from .geo, .pxy and .llc files";
  try {
    PxyCoordinateFile file(false);
    korvel::ReadCoordinateFile(path, file, messages);
    return {};
  } catch (const korvel::InputError& error) {
    return error.what();
  }
}

[[noreturn]] void ThrowLoadFaults(const std::vector<std::string>& files,
                                  korvel::LibraryMessages& messages) {
  std::string faults;
  for (const std::string& path : files) {
    const std::string fault = LoadFault(path, messages);
    if (!fault.empty()) faults += (faults.empty() ? "" : "\n") + fault;
  }
  throw korvel::InputError(faults.empty() ? "the known points can't be read" : faults);
}

std::string IndexSpelling(const std::string& name) {
  std::string spelling(Trim(name));
  std::replace(spelling.begin(), spelling.end(), ',', '.');
  return spelling;
}

// The name that the point has in its file.
std::string OwnName(const PointInfo& point) {
  const auto* item = dynamic_cast<const PointDataItem*>(point.GetAttributeHolder());
  return item ? std::string(Trim(item->NameText())) : std::string();
}

bool IsRenamed(const std::string& uniqueName, const std::string& ownName) {
  return uniqueName != ownName && !uniqueName.ends_with('.' + ownName);
}

}  // namespace

namespace korvel {

KnownPoints::KnownPoints(const std::vector<std::string>& files, LibraryMessages& messages) {
  messages.Clear();
  const CoordinateFilesMap::LoadResult result = map_.LoadFiles(files, L"");
  if (result == CoordinateFilesMap::LoadFailed) ThrowLoadFaults(files, messages);
  CountPoints();
  if (result == CoordinateFilesMap::NamesChanged) WarnOfRenamed();
}

std::optional<KnownPoint> KnownPoints::Find(const std::string& name,
                                            const std::string& line) const {
  std::vector<std::string> spellings{name, IndexSpelling(name)};
  if (!line.empty()) {
    spellings.push_back(line + '.' + name);
    spellings.push_back(IndexSpelling(spellings.back()));
  }
  PointInfo point;
  for (const std::string& spelling : spellings)
    if (map_.GetPoint(spelling, point)) return KnownPoint{spelling, FileOf(point), point.GetENH()};
  return {};
}

std::string KnownPoints::FileOf(const PointInfo& point) const {
  return map_.GetFileNames()[point.GetFileIndex()];
}

void KnownPoints::CountPoints() {
  std::vector<std::size_t> counts(map_.GetFileNames().size());
  PointInfo point;
  for (const std::string& name : map_.GetPointList())
    if (map_.GetPoint(name, point)) ++counts[point.GetFileIndex()];
  for (std::size_t i = 0; i < counts.size(); ++i)
    fileLines_.push_back(map_.GetFileNames()[i] + ": " + CountText(counts[i], "point"));
}

void KnownPoints::WarnOfRenamed() {
  PointInfo point;
  std::size_t count = 0;
  for (const std::string& name : map_.GetPointList()) {
    if (!map_.GetPoint(name, point) || !IsRenamed(name, OwnName(point))) continue;
    if (++count <= kWarningsShown) warnings_.push_back(DescribeRenamed(name, point));
  }
  if (count > kWarningsShown)
    warnings_.push_back(CountText(count - kWarningsShown, "further point") + " renamed");
}

std::string KnownPoints::DescribeRenamed(const std::string& name, const PointInfo& point) const {
  const std::string text = FileOf(point) + ": point " + OwnName(point) + " is known as " + name;
  PointInfo first;
  if (!map_.GetPoint(name.substr(0, name.rfind(kDuplicateMark)), first)) return text;
  if (first.GetAttributeHolder() == point.GetAttributeHolder()) return text;
  const double distance = (point.GetENH().GetXY() - first.GetENH().GetXY()).GetLength();
  return text + ": " + FileOf(first) + " has the name already, " + NumberText(distance, 3) +
         " m away";
}

}  // namespace korvel
