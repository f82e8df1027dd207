#include "korvelfile/outside/services/TerminalProgress.h"

#include <algorithm>

#include "korvelfile/outside/base/Text.h"

namespace Korvel {

TerminalProgress::TerminalProgress() = default;
TerminalProgress::~TerminalProgress() = default;

void TerminalProgress::Begin(const std::wstring& text, int total) {
  bar_.emplace(Narrow(text));
  total_ = std::max(total, 1);
  done_ = 0;
}

void TerminalProgress::Step() {
  if (bar_) bar_->Show(static_cast<double>(++done_) / total_);
}

}  // namespace Korvel
