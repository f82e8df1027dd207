#pragma once

#include <optional>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/services/IProgressIndicator.h"
#include "korvelfile/outside/services/ProgressBar.h"

namespace Korvel {

/// Shows each part of a work as a bar on standard error, where a terminal watches and the part
/// takes longer than a second. One thread at a time.
class KORVELFILE_EXPORT TerminalProgress : public IProgressIndicator {
 public:
  TerminalProgress();
  ~TerminalProgress() override;

  void Begin(const std::wstring& text, int total) override;
  void Step() override;

 private:
  std::optional<ProgressBar> bar_;
  int total_ = 0;
  int done_ = 0;
};

}  // namespace Korvel
