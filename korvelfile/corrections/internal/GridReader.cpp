#include "korvelfile/corrections/internal/GridReader.h"

#include <cstddef>

#include "korvelfile/corrections/internal/BlockCache.h"
#include "korvelfile/corrections/internal/PositionedFloats.h"

namespace {

constexpr std::chrono::microseconds kTrustTime{2};

}  // namespace

GridReader::GridReader() = default;
GridReader::~GridReader() = default;
GridReader::GridReader(const GridReader& /*other*/) {}

GridReader& GridReader::operator=(const GridReader& /*other*/) {
  Forget();
  return *this;
}

void GridReader::Forget() {
  cache_.reset();
  state_ = {};
}

bool GridReader::Read(const std::string& path, const GridLayout& layout, const NodeWindow& window,
                      float* nodes) {
  if (layout.start < 0 || layout.stride <= 0) return false;
  if (layout != layout_ || path != path_) {
    Forget();
    path_ = path;
    layout_ = layout;
  }
  // In this order, for opening the file looks at its state anyway.
  if (cache_ && cache_->Get(window, nodes) && AreBlocksValid()) return Holds(window);
  return ReadFromFile(window, nodes);
}

bool GridReader::AreBlocksValid() {
  const auto now = std::chrono::steady_clock::now();
  if (now - lastLook_ < kTrustTime) return true;
  lastLook_ = now;
  LookAt(FileState::Of(path_));
  return cache_ != nullptr;
}

void GridReader::LookAt(const FileState& state) {
  if (state == state_) return;
  cache_.reset();
  state_ = state;
  wholeRows_ = (state_.size - layout_.start) / layout_.stride;
}

// Rows are counted instead of bytes, so that nothing overflows whatever the window.
bool GridReader::Holds(const NodeWindow& window) const {
  if (window.row + window.rows <= wholeRows_) return true;
  if (window.row + window.rows > wholeRows_ + 1) return false;
  const std::int64_t rest = state_.size - layout_.start - wholeRows_ * layout_.stride;
  return (window.column + window.columns) * 4 * layout_.values <= rest;
}

bool GridReader::ReadFromFile(const NodeWindow& window, float* nodes) {
  lastLook_ = std::chrono::steady_clock::now();
  const PositionedFile file(path_);
  LookAt(file.GetState());
  if (!Holds(window)) return false;
  const auto inRow = static_cast<std::size_t>(window.columns * layout_.values);
  std::int64_t offset =
      layout_.start + window.row * layout_.stride + 4 * window.column * layout_.values;
  for (int row = 0; row < window.rows; ++row, offset += layout_.stride, nodes += inRow)
    if (!ReadFloatsAt(file, offset, inRow, nodes)) return false;
  if (!cache_ && state_.IsSettled()) cache_ = std::make_unique<BlockCache>(layout_);
  if (cache_) cache_->Miss(file, window);
  return true;
}
