#include "korvelfile/coordinates/CoordinateFileInterface.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace {

using ListLock = Korvel::scoped_lock<DataItemListObject>;

template <class T>
T* FindByName(const DataItemListObject& list, const std::string& name) {
  TypedItemCursor<T> cursor(list);
  T* item = nullptr;
  while (cursor.Next(item) == 0) {
    if (item->NameText() == name) return item;
  }
  return nullptr;
}

// Deletes the first point of this name; false if there is none.
bool DeletePointByName(DataItemListObject& list, const std::string& name) {
  const ListLock lock(list);
  auto* point = FindByName<PointDataItem>(list, name);
  return point && list.DeleteItem(point) == 0;
}

// Deletes item number `index` of the first line of this name; false if there is none.
bool DeleteFromLine(const DataItemListObject& file, std::size_t index, const std::string& name) {
  const ListLock lock(file);
  auto* line = FindByName<LineDataItem>(file, name);
  return line && line->DeleteItemByIndex(index) == 0;
}

}  // namespace

void CoordinateFileInterface::InsertLine(LineDataItem* line) {
  FlagDirty();
  InsertItem(line, -1);
  isExtentValid_ = false;
}

void CoordinateFileInterface::InsertLine(std::unique_ptr<LineDataItem> line) {
  InsertLine(line.release());
}

void CoordinateFileInterface::InsertPoint(PointDataItem* point, const LineDataItem* line) {
  std::unique_ptr<PointDataItem> taken(point);
  if (line) {
    InsertInLine(taken, *line);
  } else {
    InsertPoint(std::move(taken));
  }
  taken.release();  // one that wasn't taken is still the caller's
}

void CoordinateFileInterface::InsertPoint(std::unique_ptr<PointDataItem> point) {
  FlagDirty();
  isExtentValid_ = false;
  InsertItem(point.release(), -1);
}

void CoordinateFileInterface::InsertPoint(std::unique_ptr<PointDataItem> point,
                                          const LineDataItem& line) {
  InsertInLine(point, line);
}

void CoordinateFileInterface::InsertInLine(std::unique_ptr<PointDataItem>& point,
                                           const LineDataItem& line) {
  FlagDirty();
  isExtentValid_ = false;
  const ListLock lock(*this);
  auto* own = FindByName<LineDataItem>(*this, line.NameText());
  if (own) own->InsertItem(point.release(), -1);
}

int CoordinateFileInterface::RemovePoint(int index, int line) {
  if (line != -1) return -1;
  FlagDirty();
  if (index < 0) return -1;
  TypedItemCursor<PointDataItem> points(*this);
  PointDataItem* point = nullptr;
  while (points.Next(point) == 0) {
    if (index-- == 0) return DeleteItem(point);
  }
  return -1;
}

// The collector's mutex goes before a list's: the removals below flag when their walk is over.

int CoordinateFileInterface::RemovePoint(int index, const char* lineName) {
  if (index < 0 || !lineName) return -1;
  if (!DeleteFromLine(*this, static_cast<std::size_t>(index), lineName)) return -1;
  FlagDirty();
  return 0;
}

int CoordinateFileInterface::RemovePoint(const char* pointName, const char* lineName) {
  if (!pointName) return -1;
  bool isDeleted = false;
  if (!lineName) {
    isDeleted = DeletePointByName(*this, pointName);
  } else {
    TypedItemCursor<LineDataItem> lines(*this);
    LineDataItem* line = nullptr;
    while (!isDeleted && lines.Next(line) == 0) {
      isDeleted = line->NameText() == lineName && DeletePointByName(*line, pointName);
    }
  }
  if (isDeleted) FlagDirty();
  return isDeleted ? 0 : -1;
}

int CoordinateFileInterface::RemovePoint(PointDataItem* /*point*/, LineDataItem* /*line*/) {
  return -1;
}

void CoordinateFileInterface::WidenByPointsOf(const DataItemListObject& list) {
  TypedItemCursor<PointDataItem> points(list);
  PointDataItem* point = nullptr;
  while (points.Next(point) == 0) {
    minX_ = std::min(minX_, point->x);
    minY_ = std::min(minY_, point->y);
    minZ_ = std::min(minZ_, point->z);
    maxX_ = std::max(maxX_, point->x);
    maxY_ = std::max(maxY_, point->y);
    maxZ_ = std::max(maxZ_, point->z);
  }
}

void CoordinateFileInterface::CalculateMinMax() {
  if (isExtentValid_) return;
  minX_ = minY_ = minZ_ = kFarOut;
  maxX_ = maxY_ = maxZ_ = -kFarOut;
  WidenByPointsOf(*this);
  TypedItemCursor<LineDataItem> lines(*this);
  LineDataItem* line = nullptr;
  while (lines.Next(line) == 0) WidenByPointsOf(*line);
  isExtentValid_ = true;
}

double CoordinateFileInterface::GetMaxX() {
  CalculateMinMax();
  return maxX_;
}

double CoordinateFileInterface::GetMaxY() {
  CalculateMinMax();
  return maxY_;
}

double CoordinateFileInterface::GetMaxZ() {
  CalculateMinMax();
  return maxZ_;
}

double CoordinateFileInterface::GetMinX() {
  CalculateMinMax();
  return minX_;
}

double CoordinateFileInterface::GetMinY() {
  CalculateMinMax();
  return minY_;
}

double CoordinateFileInterface::GetMinZ() {
  CalculateMinMax();
  return minZ_;
}

void CoordinateFileInterface::FreeCollector() {
  ClearListObject();
  isExtentValid_ = false;
}
