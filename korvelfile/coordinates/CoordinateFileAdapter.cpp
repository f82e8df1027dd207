#include "korvelfile/coordinates/CoordinateFileAdapter.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/internal/FileLine.h"
#include "korvelfile/data/ItemCast.h"

namespace {

// Where `item` stands in `list`, or the end.
int PositionOf(const DataItemListObject& list, const DataItemInterface* item) {
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&](const DataItemInterface& other) { return &other == item; });
  return static_cast<int>(found - list.begin());
}

}  // namespace

CoordinateFileAdapter::CoordinateFileAdapter(std::shared_ptr<PxyCoordinateFile> file)
    : file_(std::move(file)) {
  for (DataItemInterface& item : *file_) {
    if (auto* line = ItemCast<LineDataItem>(&item)) lines_.push_back({line, {}});
  }
}

CoordinateFileAdapter::~CoordinateFileAdapter() = default;

int CoordinateFileAdapter::GetLineCount() const { return static_cast<int>(lines_.size()); }

std::shared_ptr<Korvel::ICoordinateLine> CoordinateFileAdapter::GetLine(int index) {
  Entry& entry = lines_.at(static_cast<std::size_t>(index));
  auto line = entry.line.lock();
  if (!line) {
    line = std::make_shared<internal::FileLine>(file_, *entry.item);
    entry.line = line;
  }
  return line;
}

std::shared_ptr<Korvel::ICoordinateLine> CoordinateFileAdapter::InsertLine(
    int index, const std::string& name) {
  const auto place = static_cast<std::size_t>(index);
  auto item = std::make_unique<LineDataItem>();
  item->SetName(name);
  const Entry entry{item.get(), {}};
  if (place == lines_.size()) {
    file_->InsertLine(std::move(item));
  } else {
    const int position = PositionOf(*file_, lines_.at(place).item);
    file_->InsertItem(item.release(), position);
    file_->FlagDirty();
  }
  lines_.insert(lines_.begin() + index, entry);
  return GetLine(index);
}

void CoordinateFileAdapter::Finish() {
  for (const Entry& entry : lines_) {
    if (const auto line = entry.line.lock()) line->Settle();
  }
}
