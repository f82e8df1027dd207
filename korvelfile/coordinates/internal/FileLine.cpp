#include "korvelfile/coordinates/internal/FileLine.h"

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <utility>
#include <vector>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/internal/FilePoint.h"
#include "korvelfile/data/ItemCast.h"
#include "korvelfile/outside/base/Ghal.h"

namespace internal {

FileLine::FileLine(std::shared_ptr<PxyCoordinateFile> file, LineDataItem& line)
    : file_(std::move(file)), line_(line) {
  for (DataItemInterface& item : line_) {
    if (auto* point = ItemCast<PointDataItem>(&item)) points_.push_back({point, false});
  }
}

FileLine::~FileLine() {
  try {
    Settle();
  } catch (const std::exception&) {
    _GHAL::SystemMessage("Out of memory: new points of a line are lost");
    for (std::size_t i = 0; i < points_.size(); ++i) {
      if (points_[i].isNew) delete points_[i].point;
    }
  }
}

std::shared_ptr<Korvel::IPxyPoint> FileLine::GetPoint(int index) {
  if (index < 0 || index >= GetPointCount()) throw std::out_of_range("No such point in the line");
  return std::make_shared<FilePoint>(file_, *points_[static_cast<std::size_t>(index)].point);
}

std::shared_ptr<Korvel::IPxyPoint> FileLine::InsertPoint(int index, const Vector3d& position,
                                                         const std::string& name) {
  if (index < 0 || index > GetPointCount()) throw std::out_of_range("No such place in the line");
  auto point = std::make_unique<PointDataItem>(position, name, "", "", "");
  auto handle = std::make_shared<FilePoint>(file_, *point);
  points_.Insert(static_cast<std::size_t>(index), {point.get(), true});
  point.release();
  hasNew_ = true;
  file_->FlagDirty();
  return handle;
}

// Other items among the points stay where they are, behind the point that they follow.
void FileLine::Settle() {
  if (!hasNew_) return;
  std::vector<DataItemListObject::NewItem> added;
  std::size_t position = 0;
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const Slot& slot = points_[i];
    if (slot.isNew) {
      added.push_back({position, slot.point});
    } else {
      while (&line_[position++] != slot.point) {
      }
    }
  }
  line_.InsertItems(added);
  for (std::size_t i = 0; i < points_.size(); ++i) points_[i].isNew = false;
  hasNew_ = false;
  file_->ForgetExtent();
}

}  // namespace internal
