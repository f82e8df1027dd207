#include "korvelfile/alignments/internal/GeoConverter.h"

#include <limits>
#include <stdexcept>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/Text.h"

namespace File::detail {

using UsePointsAs = GeoFileLinPrfProxy::UsePointsAs;

GeoConverter::GeoConverter(const std::wstring& fileName, UsePointsAs use, int lineIndex)
    : file_(std::make_shared<PxyCoordinateFile>(false)) {
  file_->ChooseFile(Narrow(fileName).c_str());
  if (file_->UseCollector() != 0) throw std::runtime_error("Open file failed");
  if (use != UsePointsAs::Line) AddPoints(*file_);
  if (use == UsePointsAs::PointsAndLines) AddLines(0, std::numeric_limits<int>::max());
  if (use == UsePointsAs::Line) AddLines(lineIndex, lineIndex);
}

GeoConverter::~GeoConverter() { file_->UnUseCollector(); }

void GeoConverter::AddPoints(const DataItemListObject& list) {
  TypedItemCursor<PointDataItem> points(list);
  PointDataItem* point = nullptr;
  while (points.Next(point) == 0) {
    nodes_.emplace_back(0.0, point);
    const int before = GetCount() - 2;
    if (before >= 0) nodes_.back().first = GetChainage(before) + StepFrom(before);
  }
}

void GeoConverter::AddLines(int first, int last) {
  TypedItemCursor<LineDataItem> lines(*file_);
  LineDataItem* line = nullptr;
  for (int index = 0; index <= last && lines.Next(line) == 0; ++index)
    if (index >= first) AddPoints(*line);
}

Vector GeoConverter::GetPosition(int index) const {
  const PointDataItem& point = GetPoint(index);
  return {point.x, point.y};
}

bool GeoConverter::GetArc(int index, CircleArc& arc) const {
  const double radius = GetPoint(index).GetRadius();
  return radius != 0.0 && arc.Set(GetPosition(index), GetPosition(index + 1), radius, 0, 0);
}

double GeoConverter::StepFrom(int index) const {
  CircleArc arc;
  return GetArc(index, arc) ? arc.GetLength()
                            : GetPosition(index).GetDistance(GetPosition(index + 1));
}

}  // namespace File::detail
