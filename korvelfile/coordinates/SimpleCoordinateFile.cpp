#include "korvelfile/coordinates/SimpleCoordinateFile.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/internal/BlockStore.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr unsigned int kNoColour = 0xFFFFFFFF;

// Cuts `text` to the field and fills the rest of it with zeros.
template <std::size_t kSize>
void PutText(char (&field)[kSize], std::string_view text) {
  const std::size_t length = text.copy(field, kSize - 1);
  std::fill(field + length, field + kSize, '\0');
}

/// A range of records, from `first`.
struct Range {
  int first;
  int count;
};

// Where a cursor at `current` goes by `mode` within `range`; nothing if that leads out of it.
std::optional<int> Move(int current, Range range, int mode, int index) {
  const int last = range.first + range.count - 1;
  int target = 0;
  switch (mode) {
    case KeeperFirst:
      target = range.first;
      break;
    case KeeperLast:
      target = last;
      break;
    case KeeperNext:
      target = current + 1;
      break;
    case KeeperPrevious:
      target = current - 1;
      break;
    case KeeperByIndex:
      if (index < 0 || index >= range.count) return std::nullopt;
      target = range.first + index;
      break;
    default:
      return std::nullopt;
  }
  if (target < range.first || target > last) return std::nullopt;
  return target;
}

CooPtData ToCooPtData(const SimpleGeoPt& record) {
  return {record.Position, record.SpecialCode[0] == 'R' ? ParseDouble(record.Remark) : 0.0};
}

}  // namespace

struct SimpleCoordinateFile::State {
  BlockStore<SimpleGeoPt, 1000> points;
  BlockStore<SimpleGeoLine, 100> lines;
  bool isInLine = false;  // never cleared: from the first line on all points belong to a line
  int freePointCount = 0;
  int currentPoint = 0;
  int currentLine = -1;
  SimpleGeoLine currentLineRecord;
  int openLinePoints = 0;
  Rect openLineExtent;
  unsigned int openLineColour = kNoColour;
  unsigned int fileColour = kNoColour;

  int PointCount() const { return static_cast<int>(points.Size()); }
  int LineCount() const { return static_cast<int>(lines.Size()); }
  const SimpleGeoPt& Point(int index) const { return points[static_cast<std::size_t>(index)]; }
  const SimpleGeoLine& Line(int index) const { return lines[static_cast<std::size_t>(index)]; }

  void Count(const Vector3d& position);
  void SaveLastLine();
  std::optional<Range> RangeOf(int kind) const;
  const SimpleGeoPt* MovePoint(int kind, int mode, int index);
  const SimpleGeoLine* MoveLine(int mode, int index);

  template <class IsHit>
  bool CollectLines(std::vector<int>& hits, IsHit isHit);
};

void SimpleCoordinateFile::State::Count(const Vector3d& position) {
  if (!isInLine) {
    ++freePointCount;
    return;
  }
  ++openLinePoints;
  openLineExtent.Widen(position.GetXY());
}

void SimpleCoordinateFile::State::SaveLastLine() {
  SimpleGeoLine& record = lines[lines.Size() - 1];
  record.PointCount = openLinePoints;
  record.Colour = openLineColour;
  record.Extent = openLineExtent;
}

std::optional<Range> SimpleCoordinateFile::State::RangeOf(int kind) const {
  if (kind == KeeperFreePoints) return Range{0, freePointCount};
  if (kind == KeeperLinePoints) {
    return Range{currentLineRecord.FirstPoint, currentLineRecord.PointCount};
  }
  return std::nullopt;
}

const SimpleGeoPt* SimpleCoordinateFile::State::MovePoint(int kind, int mode, int index) {
  const auto range = RangeOf(kind);
  const auto target = range ? Move(currentPoint, *range, mode, index) : std::nullopt;
  if (!target) return nullptr;
  currentPoint = *target;
  return &Point(currentPoint);
}

const SimpleGeoLine* SimpleCoordinateFile::State::MoveLine(int mode, int index) {
  const auto target = Move(currentLine, {0, LineCount()}, mode, index);
  if (!target) return nullptr;
  currentLine = *target;
  currentLineRecord = Line(currentLine);
  currentPoint = currentLineRecord.FirstPoint;
  return &currentLineRecord;
}

// Adds the lines of which `isHit` holds for any segment, and leaves the line cursor on the last.
template <class IsHit>
bool SimpleCoordinateFile::State::CollectLines(std::vector<int>& hits, IsHit isHit) {
  bool anyHit = false;
  for (int mode = KeeperFirst; MoveLine(mode, 0); mode = KeeperNext) {
    const Range range{currentLineRecord.FirstPoint, currentLineRecord.PointCount};
    bool lineHit = false;
    for (int i = range.first; !lineHit && i + 1 < range.first + range.count; ++i) {
      lineHit = isHit({Point(i).Position.GetXY(), Point(i + 1).Position.GetXY()});
    }
    anyHit = anyHit || lineHit;
    if (lineHit && std::find(hits.begin(), hits.end(), currentLine) == hits.end()) {
      hits.push_back(currentLine);
    }
  }
  if (lines.Size() > 0) std::sort(hits.begin(), hits.end());
  return anyHit;
}

SimpleCoordinateFile::SimpleCoordinateFile() : state_(std::make_unique<State>()) {}

SimpleCoordinateFile::SimpleCoordinateFile(const SimpleCoordinateFile& other)
    : CoordinatesKeeper(other),
      GraphicsObjectInterface(other),
      state_(std::make_unique<State>(*other.state_)) {}

SimpleCoordinateFile& SimpleCoordinateFile::operator=(const SimpleCoordinateFile& other) {
  *state_ = State(*other.state_);
  return *this;
}

SimpleCoordinateFile::~SimpleCoordinateFile() = default;

bool SimpleCoordinateFile::InsertPoint(PointDataItem* point, unsigned int colour) {
  return point && InsertPoint(*point, point->NameText(), point->GetPointCode(),
                              point->GetSpecialCode(), point->GetRemark(), colour);
}

bool SimpleCoordinateFile::InsertPoint(const Vector3d& position, std::string_view name,
                                       std::string_view pointCode, std::string_view specialCode,
                                       std::string_view remark, unsigned int colour) {
  SimpleGeoPt* record = state_->points.Add();
  if (!record) return false;
  record->Position = position;
  record->Colour = colour;
  PutText(record->Name, name);
  PutText(record->PointCode, pointCode);
  PutText(record->SpecialCode, specialCode);
  PutText(record->Remark, remark);
  state_->Count(position);
  return true;
}

bool SimpleCoordinateFile::InsertLine(LineDataItem* line) {
  if (!line) return false;
  if (state_->isInLine && state_->openLinePoints > 0) state_->SaveLastLine();
  state_->openLineExtent = Rect::Nothing();
  SimpleGeoLine* record = state_->lines.Add();
  if (!record) return false;
  *record = SimpleGeoLine();
  PutText(record->Name, line->NameText());
  PutText(record->Code, line->CodeText());
  record->Closed = line->LineType != 0;
  record->FirstPoint = state_->PointCount();
  record->Extent = state_->openLineExtent;
  state_->openLinePoints = 0;
  state_->isInLine = true;
  return true;
}

void SimpleCoordinateFile::InsertLineColor(unsigned int colour) { state_->openLineColour = colour; }

void SimpleCoordinateFile::SetFileColor(unsigned int colour) { state_->fileColour = colour; }

unsigned int SimpleCoordinateFile::GetFileColor() const { return state_->fileColour; }

void SimpleCoordinateFile::FinishedReading() {
  if (state_->isInLine && state_->openLinePoints > 0) state_->SaveLastLine();
}

int SimpleCoordinateFile::GetPointCount() const { return state_->PointCount(); }

int SimpleCoordinateFile::GetLineCount() const { return state_->LineCount(); }

ThrowableErrorCode<bool> SimpleCoordinateFile::GetPoint(SimpleGeoPt& point, int kind, int mode,
                                                        int index) {
  const SimpleGeoPt* found = state_->MovePoint(kind, mode, index);
  if (found) point = *found;
  return found != nullptr;
}

ThrowableErrorCode<bool> SimpleCoordinateFile::GetPoint(CooPtData& point, int kind, int mode,
                                                        int index) {
  const SimpleGeoPt* found = state_->MovePoint(kind, mode, index);
  if (found) point = ToCooPtData(*found);
  return found != nullptr;
}

ThrowableErrorCode<bool> SimpleCoordinateFile::GetLine(SimpleGeoLine& line, int mode, int index) {
  const SimpleGeoLine* found = state_->MoveLine(mode, index);
  if (found) line = *found;
  return found != nullptr;
}

ThrowableErrorCode<bool> SimpleCoordinateFile::GetLine(CooLineData& line, int mode, int index) {
  const SimpleGeoLine* found = state_->MoveLine(mode, index);
  if (found) line = {Widen(found->Name), Widen(found->Code), state_->currentLine};
  return found != nullptr;
}

ThrowableErrorCode<bool> SimpleCoordinateFile::GetPointInLine(CooPtData& point, int line,
                                                              int index) const {
  if (line < -1 || line >= state_->LineCount()) return false;
  Range range{0, state_->freePointCount};
  if (line >= 0) range = {state_->Line(line).FirstPoint, state_->Line(line).PointCount};
  if (index < 0 || index >= range.count) return false;
  point = ToCooPtData(state_->Point(range.first + index));
  return true;
}

ThrowableErrorCode<bool> SimpleCoordinateFile::IsPointNearLine(const CooPtData& point,
                                                               double distance,
                                                               std::vector<int>& lines) {
  const Vector query = point.Position.GetXY();
  return state_->CollectLines(
      lines, [&](const Line& segment) { return segment.IsPointNear(query, distance); });
}

ThrowableErrorCode<bool> SimpleCoordinateFile::LineIntersectsBox(const CooPtData& a,
                                                                 const CooPtData& b,
                                                                 std::vector<int>& lines) {
  const Rect box(a.Position.GetXY(), b.Position.GetXY());
  return state_->CollectLines(lines, [&](const Line& segment) { return box.Intersects(segment); });
}
