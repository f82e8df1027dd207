#include "fuzz/support/Points.h"

#include <cmath>
#include <memory>
#include <vector>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace fuzz {

namespace {

void AskPoint(PointDataItem& point) {
  double bearing = 0.0;
  point.GetBearing(bearing);
  point.GetRadius();
  point.MakeRemarkDecimal();
  point.RemoveLineNo('.');
  if (const GeoAttrib* date = GeoAttrib::GetAttribute(&point, "Date")) date->GetGeoDateValue();
  GeoFileColors::GetObjectColor(&point);
}

void AskPoints(const DataItemListObject& list) {
  TypedItemCursor<PointDataItem> points(list);
  PointDataItem* point = nullptr;
  while (points.Next(point) == 0) AskPoint(*point);
}

int WalkPoints(CoordinatesKeeper& store, int kind) {
  int count = 0;
  CooPtData point;
  for (bool more = store.GetPoint(point, kind, KeeperFirst, 0); more; ++count) {
    more = store.GetPoint(point, kind, KeeperNext, 0);
  }
  return count;
}

void WalkStore(CoordinatesKeeper& store) {
  int count = WalkPoints(store, KeeperFreePoints);
  CooPtData point;
  Require(store.GetPointInLine(point, -1, count - 1) == (count > 0), "free points miscounted");
  CooLineData line;
  bool more = store.GetLine(line, KeeperFirst, 0);
  for (int index = 0; more; ++index) {
    Require(line.Index == index, "line out of order");
    count = WalkPoints(store, KeeperLinePoints);
    Require(store.GetPointInLine(point, index, count - 1) == (count > 0), "points miscounted");
    Require(!store.GetPointInLine(point, index, count), "point behind the last");
    more = store.GetLine(line, KeeperNext, 0);
  }
  std::vector<int> hits;
  const bool isNear = store.IsPointNearLine(point, 1.0, hits);
  const bool isHit = store.LineIntersectsBox({{-1e9, -1e9, 0.0}}, {{1e9, 1e9, 0.0}}, hits);
  Require((isNear || isHit) == !hits.empty(), "hits without lines");
}

}  // namespace

void CheckPointReader(std::string_view input, const std::string& name,
                      bool (*isExact)(const std::string& bytes)) {
  const std::string path = PathInMemory(name);
  WriteBytes(path, input);
  PxyCoordinateFile file(false);
  Choose(file, path);
  if (file.UseCollector() != 0) return;
  WalkItems(file);
  PxyCoordinateFile again(false);
  CheckRewrite(file, again, path, isExact);
  file.GetMaxX();
  AskPoints(file);
  TypedItemCursor<LineDataItem> lines(file);
  LineDataItem* line = nullptr;
  while (lines.Next(line) == 0) AskPoints(*line);
}

void CheckStoreReader(std::string_view input, const std::string& name) {
  const std::string path = PathInMemory(name);
  WriteBytes(path, input);
  PxyCoordinateFile file(true);
  Choose(file, path);
  if (file.UseCollector() != 0) return;
  WalkItems(file);
  WalkStore(*file.GetDataHolder());
}

}  // namespace fuzz
