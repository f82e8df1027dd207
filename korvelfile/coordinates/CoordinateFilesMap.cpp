// The index is a hash table of numbers into the list of names: a look-up needs the exact name only,
// and a million insertions into a tree cost more than reading the files. Points wait in a short
// queue until memory has brought their place in the table near.

#include "korvelfile/coordinates/CoordinateFilesMap.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/ItemCast.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/data/internal/DenseTable.h"
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

std::uint32_t HashOf(const std::string& name) {
  return static_cast<std::uint32_t>(std::hash<std::string>()(name));
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
  const PointInfo* Find(const std::string& name) const;
  void AddPoint(const std::string& name, const Vector3d& position);
  std::string SetAdditionalPoint(const std::string& name, const Vector3d& position);

  Extent extent;
  std::vector<std::shared_ptr<GraphicsObjectInterface>> graphicsObjects;
  std::vector<std::string> fileNames;
  std::vector<std::string> pointList;
  std::vector<std::vector<std::string>> lineList;

 private:
  using Number = internal::DenseTable::Number;

  /// A point that is about to be indexed.
  struct Waiting {
    PointDataItem* point = nullptr;
    std::string candidate;
    std::string baseName;
  };

  void Clear();
  void Release();
  bool OpenAll(const std::vector<std::string>& files, const std::string& directory);
  LoadResult IndexAll();
  void Reserve();
  void IndexFile(PxyCoordinateFile& file);
  void IndexLine(LineDataItem& line);
  void IndexSoon(PointDataItem& point, const std::string& prefix);
  void IndexWaiting();
  void Index(Waiting& waiting);
  Number FindNumber(const std::string& name) const;
  void InsertUnique(std::string name, const PointInfo& info, unsigned int& counter);
  void InsertForeign(const std::string& name, const Vector3d& position);
  void Erase(const std::string& name);

  std::vector<PointInfo> infos_;  // of the points, in the order of their names in the list
  internal::DenseTable numbers_;
  std::array<Waiting, 8> queue_;
  std::size_t nextInQueue_ = 0;
  std::string additionalPoint_;
  unsigned char fileIndex_ = 0;           // of the load
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
  infos_.clear();
  numbers_.Clear();
  queue_ = {};  // points may wait in it still if memory ran out
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
  fileIndex_ = 0;
  for (const auto& object : graphicsObjects) {
    if (auto* file = dynamic_cast<PxyCoordinateFile*>(object.get())) IndexFile(*file);
    ++fileIndex_;
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
  numbers_.Reserve(count);
  infos_.reserve(count);
  pointList.reserve(count);
}

void CoordinateFilesMap::Implementation::IndexFile(PxyCoordinateFile& file) {
  const Korvel::scoped_lock<DataItemListObject> lock(file);
  for (DataItemInterface& item : file) {
    if (auto* point = ItemCast<PointDataItem>(&item)) IndexSoon(*point, "");
  }
  IndexWaiting();
  for (DataItemInterface& item : file) {
    if (auto* line = ItemCast<LineDataItem>(&item)) IndexLine(*line);
  }
}

void CoordinateFilesMap::Implementation::IndexLine(LineDataItem& line) {
  const Korvel::scoped_lock<DataItemListObject> lock(line);
  const std::string prefix = line.NameText() + '.';
  const auto first = static_cast<std::ptrdiff_t>(pointList.size());
  for (DataItemInterface& item : line) {
    if (auto* point = ItemCast<PointDataItem>(&item)) IndexSoon(*point, prefix);
  }
  IndexWaiting();
  std::vector<std::string> names(pointList.begin() + first, pointList.end());
  if (names.size() < 2) return;
  if (line.LineType != 0) names.push_back(names.front());
  lineList.push_back(std::move(names));
}

void CoordinateFilesMap::Implementation::IndexSoon(PointDataItem& point,
                                                   const std::string& prefix) {
  Waiting& waiting = queue_[nextInQueue_];
  nextInQueue_ = (nextInQueue_ + 1) % queue_.size();
  Index(waiting);
  const std::string fullName = prefix + point.NameText();
  waiting.point = &point;
  waiting.candidate = Trim(fullName);
  waiting.baseName = WithPoints(waiting.candidate);
  numbers_.Prefetch(HashOf(waiting.baseName));
}

void CoordinateFilesMap::Implementation::IndexWaiting() {
  for (std::size_t i = 0; i < queue_.size(); ++i) {
    Index(queue_[(nextInQueue_ + i) % queue_.size()]);
  }
}

void CoordinateFilesMap::Implementation::Index(Waiting& waiting) {
  if (!waiting.point) return;
  PointDataItem& point = *std::exchange(waiting.point, nullptr);
  InsertUnique(waiting.baseName, {point, point.GetRadius(), point.GetBearing(), &point, fileIndex_},
               counter_);
  if (pointList.back() != waiting.candidate) {
    result_ = NamesChanged;
  } else if (result_ == NoPoints) {
    result_ = NamesKept;
  }
  extent.Widen(point);
}

CoordinateFilesMap::Implementation::Number CoordinateFilesMap::Implementation::FindNumber(
    const std::string& name) const {
  return numbers_.Find(HashOf(name), [&](Number number) { return pointList[number] == name; });
}

const PointInfo* CoordinateFilesMap::Implementation::Find(const std::string& name) const {
  const Number number = FindNumber(name);
  return number == internal::DenseTable::kNone ? nullptr : &infos_[number];
}

// Appends a point under `name`, or under the first "name_x<counter>" that is free.
void CoordinateFilesMap::Implementation::InsertUnique(std::string name, const PointInfo& info,
                                                      unsigned int& counter) {
  const std::size_t baseSize = name.size();
  while (FindNumber(name) != internal::DenseTable::kNone) {
    name.resize(baseSize);
    name += "_x" + std::to_string(counter++);
  }
  const std::uint32_t hash = HashOf(name);
  const auto number = static_cast<Number>(pointList.size());
  pointList.push_back(std::move(name));
  infos_.push_back(info);
  numbers_.Insert(hash, number);
}

void CoordinateFilesMap::Implementation::InsertForeign(const std::string& name,
                                                       const Vector3d& position) {
  unsigned int counter = kFirstCounter;
  InsertUnique(WithPoints(name), {position, 0.0, kUndefined, nullptr, PointInfo::kNoFile}, counter);
}

void CoordinateFilesMap::Implementation::AddPoint(const std::string& name,
                                                  const Vector3d& position) {
  if (pointList.empty()) extent = Extent();
  InsertForeign(name, position);
  extent.Widen(position);
}

void CoordinateFilesMap::Implementation::Erase(const std::string& name) {
  const Number number = FindNumber(name);
  if (number == internal::DenseTable::kNone) return;
  numbers_.Erase(HashOf(name), number);
  numbers_.CloseUp(number);
  pointList.erase(pointList.begin() + number);
  infos_.erase(infos_.begin() + number);
}

std::string CoordinateFilesMap::Implementation::SetAdditionalPoint(const std::string& name,
                                                                   const Vector3d& position) {
  if (!additionalPoint_.empty()) Erase(additionalPoint_);
  InsertForeign(name, position);
  additionalPoint_ = pointList.back();
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
  const PointInfo* found = implementation_->Find(name);
  if (found) info = *found;
  return found != nullptr;
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
