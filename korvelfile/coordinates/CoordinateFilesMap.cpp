// The index is a hash table: a look-up needs the exact name only, and a million insertions into a
// tree cost more than reading the files.

#include "korvelfile/coordinates/CoordinateFilesMap.h"

#include <algorithm>
#include <cfloat>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr unsigned int kFirstCounter = 2;
constexpr std::size_t kExtensionSize = 4;

struct Extent {
  Vector3d max{-DBL_MAX, -DBL_MAX, -DBL_MAX};
  Vector3d min{DBL_MAX, DBL_MAX, DBL_MAX};

  void Widen(const Vector3d& p) {
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
  }
};

bool IsCoordinateFile(std::string_view path) {
  if (path.size() < kExtensionSize) return false;
  const std::string_view extension = path.substr(path.size() - kExtensionSize);
  return EqualNoCase(extension, ".geo") || EqualNoCase(extension, ".pxy") ||
         EqualNoCase(extension, ".llc");
}

std::shared_ptr<PxyCoordinateFile> OpenCoordinateFile(const std::string& path) {
  if (!IsCoordinateFile(path)) return nullptr;
  auto file = std::make_shared<PxyCoordinateFile>(false);
  file->ChooseFile(path.c_str());
  return file->UseCollector() == 0 ? file : nullptr;
}

std::string WithPoints(std::string name) {
  std::replace(name.begin(), name.end(), ',', '.');
  return name;
}

}  // namespace

class CoordinateFilesMap::Implementation {
 public:
  ~Implementation() { Release(); }

  LoadResult Load(const std::vector<std::string>& files, const std::string& directory);
  void AddPoint(const std::string& name, const Vector3d& position);
  std::string SetAdditionalPoint(const std::string& name, const Vector3d& position);

  Extent extent;
  std::vector<std::shared_ptr<GraphicsObjectInterface>> graphicsObjects;
  std::vector<std::string> fileNames;
  std::vector<std::string> pointList;
  std::vector<std::vector<std::string>> lineList;
  std::unordered_map<std::string, PointInfo> points;

 private:
  using Entry = std::pair<const std::string, PointInfo>;

  void Clear();
  void Release();
  bool OpenAll(const std::vector<std::string>& files, const std::string& directory);
  LoadResult IndexAll();
  void Reserve();
  void IndexFile(PxyCoordinateFile& file, unsigned char fileIndex);
  void IndexLine(LineDataItem& line, unsigned char fileIndex);
  const std::string& IndexPoint(PointDataItem& point, const std::string& prefix,
                                unsigned char fileIndex);
  Entry& InsertUnique(std::string name, unsigned int& counter);
  const std::string& InsertForeign(const std::string& name, const Vector3d& position);

  std::string additionalPoint_;
  unsigned int counter_ = kFirstCounter;  // of the load, for unique names
  LoadResult result_ = NoPoints;
};

void CoordinateFilesMap::Implementation::Release() {
  for (const auto& object : graphicsObjects) {
    if (auto* file = dynamic_cast<PxyCoordinateFile*>(object.get())) file->UnUseCollector();
  }
  graphicsObjects.clear();
}

void CoordinateFilesMap::Implementation::Clear() {
  pointList.clear();
  lineList.clear();
  points.clear();
  additionalPoint_.clear();
  Release();
  fileNames.clear();
}

// False if any file couldn't be loaded.
bool CoordinateFilesMap::Implementation::OpenAll(const std::vector<std::string>& files,
                                                 const std::string& directory) {
  for (const std::string& name : files) {
    auto file = OpenCoordinateFile(directory + name);
    if (!file) continue;
    graphicsObjects.push_back(std::move(file));
    fileNames.push_back(name);
  }
  return fileNames.size() == files.size();
}

CoordinateFilesMap::LoadResult CoordinateFilesMap::Implementation::Load(
    const std::vector<std::string>& files, const std::string& directory) {
  Clear();
  const bool allOpen = OpenAll(files, directory);
  if (graphicsObjects.empty()) return allOpen ? NoPoints : LoadFailed;
  const LoadResult indexed = IndexAll();
  return allOpen ? indexed : LoadFailed;
}

CoordinateFilesMap::LoadResult CoordinateFilesMap::Implementation::IndexAll() {
  counter_ = kFirstCounter;
  result_ = NoPoints;
  extent = Extent();
  Reserve();
  unsigned char fileIndex = 0;
  for (const auto& object : graphicsObjects) {
    if (auto* file = dynamic_cast<PxyCoordinateFile*>(object.get())) IndexFile(*file, fileIndex);
    ++fileIndex;
  }
  if (result_ == NoPoints) extent = {{1.0, 1.0, 1.0}, {0.0, 0.0, 0.0}};
  return result_;
}

// Room for all free points, so that the table grows once.
void CoordinateFilesMap::Implementation::Reserve() {
  std::size_t count = 0;
  for (const auto& object : graphicsObjects) {
    if (const auto* file = dynamic_cast<PxyCoordinateFile*>(object.get())) count += file->size();
  }
  points.reserve(count);
  pointList.reserve(count);
}

void CoordinateFilesMap::Implementation::IndexFile(PxyCoordinateFile& file,
                                                   unsigned char fileIndex) {
  const Korvel::scoped_lock<DataItemListObject> lock(file);
  for (DataItemInterface& item : file) {
    if (auto* point = dynamic_cast<PointDataItem*>(&item)) {
      pointList.push_back(IndexPoint(*point, "", fileIndex));
    }
  }
  for (DataItemInterface& item : file) {
    if (auto* line = dynamic_cast<LineDataItem*>(&item)) IndexLine(*line, fileIndex);
  }
}

void CoordinateFilesMap::Implementation::IndexLine(LineDataItem& line, unsigned char fileIndex) {
  const Korvel::scoped_lock<DataItemListObject> lock(line);
  const std::string prefix = line.NameText() + '.';
  std::vector<std::string> names;
  for (DataItemInterface& item : line) {
    auto* point = dynamic_cast<PointDataItem*>(&item);
    if (point) names.push_back(IndexPoint(*point, prefix, fileIndex));
  }
  pointList.insert(pointList.end(), names.begin(), names.end());
  if (names.size() < 2) return;
  if (line.LineType != 0) names.push_back(names.front());
  lineList.push_back(std::move(names));
}

const std::string& CoordinateFilesMap::Implementation::IndexPoint(PointDataItem& point,
                                                                  const std::string& prefix,
                                                                  unsigned char fileIndex) {
  const std::string full = prefix + point.NameText();
  const std::string candidate(Trim(full));
  Entry& entry = InsertUnique(WithPoints(candidate), counter_);
  if (entry.first != candidate) {
    result_ = NamesChanged;
  } else if (result_ == NoPoints) {
    result_ = NamesKept;
  }
  entry.second = PointInfo(point, point.GetRadius(), point.GetBearing(), &point, fileIndex);
  extent.Widen(point);
  return entry.first;
}

// Puts a new entry under `name`, or under the first "name_x<counter>" that is free.
CoordinateFilesMap::Implementation::Entry& CoordinateFilesMap::Implementation::InsertUnique(
    std::string name, unsigned int& counter) {
  auto [place, isNew] = points.try_emplace(name);
  while (!isNew) {
    std::tie(place, isNew) = points.try_emplace(name + "_x" + std::to_string(counter++));
  }
  return *place;
}

const std::string& CoordinateFilesMap::Implementation::InsertForeign(const std::string& name,
                                                                     const Vector3d& position) {
  unsigned int counter = kFirstCounter;
  Entry& entry = InsertUnique(WithPoints(name), counter);
  entry.second = PointInfo(position, 0.0, kUndefined, nullptr, PointInfo::kNoFile);
  pointList.push_back(entry.first);
  return entry.first;
}

void CoordinateFilesMap::Implementation::AddPoint(const std::string& name,
                                                  const Vector3d& position) {
  if (points.empty()) extent = Extent();
  InsertForeign(name, position);
  extent.Widen(position);
}

std::string CoordinateFilesMap::Implementation::SetAdditionalPoint(const std::string& name,
                                                                   const Vector3d& position) {
  if (!additionalPoint_.empty()) {
    std::erase(pointList, additionalPoint_);
    points.erase(additionalPoint_);
  }
  additionalPoint_ = InsertForeign(name, position);
  return additionalPoint_;
}

CoordinateFilesMap::CoordinateFilesMap() : implementation_(std::make_shared<Implementation>()) {}

CoordinateFilesMap::CoordinateFilesMap(const std::vector<std::string>& files,
                                       const std::wstring& directory)
    : CoordinateFilesMap() {
  LoadFiles(files, directory);
}

CoordinateFilesMap::LoadResult CoordinateFilesMap::LoadFiles(const std::vector<std::string>& files,
                                                             const std::wstring& directory) {
  return implementation_->Load(files, Narrow(directory));
}

bool CoordinateFilesMap::GetPoint(const std::string& name, PointInfo& info) const {
  const auto found = implementation_->points.find(name);
  if (found == implementation_->points.end()) return false;
  info = found->second;
  return true;
}

void CoordinateFilesMap::AddPoint(const std::string& name, const Vector3d& position) {
  implementation_->AddPoint(name, position);
}

std::string CoordinateFilesMap::SetAdditionalPoint(const std::string& name,
                                                   const Vector3d& position) {
  return implementation_->SetAdditionalPoint(name, position);
}

const std::vector<std::string>& CoordinateFilesMap::GetPointList() const {
  return implementation_->pointList;
}

const std::vector<std::vector<std::string>>& CoordinateFilesMap::GetLineList() const {
  return implementation_->lineList;
}

const std::vector<std::shared_ptr<GraphicsObjectInterface>>&
CoordinateFilesMap::GetGraphicsObjects() const {
  return implementation_->graphicsObjects;
}

const std::vector<std::string>& CoordinateFilesMap::GetFileNames() const {
  return implementation_->fileNames;
}

double CoordinateFilesMap::GetMaxX() const { return implementation_->extent.max.x; }
double CoordinateFilesMap::GetMaxY() const { return implementation_->extent.max.y; }
double CoordinateFilesMap::GetMaxZ() const { return implementation_->extent.max.z; }
double CoordinateFilesMap::GetMinX() const { return implementation_->extent.min.x; }
double CoordinateFilesMap::GetMinY() const { return implementation_->extent.min.y; }
double CoordinateFilesMap::GetMinZ() const { return implementation_->extent.min.z; }
