#include "tools/korvel/PointsFile.h"

#include <memory>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/StationOutcome.h"

namespace {

using korvel::NewPoint;

std::unique_ptr<LineDataItem> LikeLine(const InmlineDataItem& measured) {
  auto line = std::make_unique<LineDataItem>();
  line->SetName(measured.NameText());
  line->SetCode(Widen(measured.GetCode()));
  line->LineType = measured.IsPolygon() ? 1 : 0;
  return line;
}

// Adds the points behind `index` that stand in one line as that line; gives the index behind them.
std::size_t InsertLine(const std::vector<NewPoint>& points, std::size_t index,
                       PxyCoordinateFile& file) {
  const InmlineDataItem* measured = points[index].line;
  std::unique_ptr<LineDataItem> line = LikeLine(*measured);
  for (; index < points.size() && points[index].line == measured; ++index)
    line->InsertItem(points[index].point->CreateCopy(), -1);
  file.InsertLine(std::move(line));
  return index;
}

void InsertStation(const korvel::StationOutcome& outcome, PxyCoordinateFile& file) {
  file.InsertPoint(std::make_unique<PointDataItem>(*outcome.station->GetStationPoint()));
  const std::vector<NewPoint>& points = outcome.newPoints;
  for (std::size_t i = 0; i < points.size();) {
    if (points[i].line) {
      i = InsertLine(points, i, file);
    } else {
      file.InsertPoint(std::make_unique<PointDataItem>(*points[i++].point));
    }
  }
}

}  // namespace

void korvel::WritePointsFile(const std::string& path, const std::vector<StationOutcome>& outcomes,
                             LibraryMessages& messages) {
  PxyCoordinateFile file(false);
  file.InitAndUseCollectorWithoutFuckingDisk();
  if (FileHeader* header = file.empty() ? nullptr : file.GetFileHeader())
    header->SetDescription("free stations and their new points");
  for (const StationOutcome& outcome : outcomes)
    if (outcome.IsComputed()) InsertStation(outcome, file);
  SaveCoordinateFile(path, file, messages);
}
