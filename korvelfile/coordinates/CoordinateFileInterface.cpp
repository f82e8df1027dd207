#include "korvelfile/coordinates/CoordinateFileInterface.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace {

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
  auto* point = FindByName<PointDataItem>(list, name);
  return point && list.DeleteItem(point) == 0;
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

bool CoordinateFileInterface::TakePoint(PointDataItem* point, const LineDataItem* line) {
  FlagDirty();
  isExtentValid_ = false;
  DataItemListObject* list = this;
  if (line) list = FindByName<LineDataItem>(*this, line->NameText());
  if (list) list->InsertItem(point, -1);
  return list != nullptr;
}

void CoordinateFileInterface::InsertPoint(PointDataItem* point, const LineDataItem* line) {
  TakePoint(point, line);
}

void CoordinateFileInterface::InsertPoint(std::unique_ptr<PointDataItem> point) {
  InsertPoint(point.release(), nullptr);
}

void CoordinateFileInterface::InsertPoint(std::unique_ptr<PointDataItem> point,
                                          const LineDataItem& line) {
  if (TakePoint(point.get(), &line)) point.release();
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

int CoordinateFileInterface::RemovePoint(int index, const char* lineName) {
  if (index < 0 || !lineName) return -1;
  auto* line = FindByName<LineDataItem>(*this, lineName);
  if (!line || line->DeleteItemByIndex(static_cast<std::size_t>(index)) != 0) return -1;
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

void CoordinateFileInterface::FreeCollector() { ClearListObject(); }
