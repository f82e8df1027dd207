#include "korvelfile/outside/services/ProgressBar.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <utility>

#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kInterval{100};
constexpr std::size_t kFields = 30;

bool IsTerminal(int descriptor) { return isatty(descriptor) == 1; }

// Control characters could disturb a terminal.
std::string WithoutControls(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
  return text;
}

}  // namespace

namespace Korvel {

ProgressBar::ProgressBar(const std::string& what)
    : ProgressBar(what, std::cerr, IsTerminal(STDERR_FILENO), std::chrono::steady_clock::now) {}

ProgressBar ProgressBar::BesideOutput(const std::string& what) {
  return {what, std::cerr, IsTerminal(STDERR_FILENO) && !IsTerminal(STDOUT_FILENO),
          std::chrono::steady_clock::now};
}

ProgressBar::ProgressBar(const std::string& what, std::ostream& out, bool isWatched, Clock clock)
    : what_(WithoutControls(what)),
      out_(out),
      isWatched_(isWatched),
      clock_(std::move(clock)),
      next_(clock_() + kPatience) {}

ProgressBar::~ProgressBar() { End(); }

void ProgressBar::Show(double done) {
  if (!isWatched_) return;
  const auto now = clock_();
  if (now < next_) return;
  next_ = now + kInterval;
  Draw(std::clamp(done, 0.0, 1.0));
}

void ProgressBar::Draw(double done) {
  const auto fields = static_cast<std::size_t>(done * static_cast<double>(kFields));
  out_ << '\r' << what_ << " [" << std::string(fields, '#') << std::string(kFields - fields, '.')
       << "] " << std::lround(100.0 * done) << " %\x1B[K" << std::flush;
  isDrawn_ = true;
}

void ProgressBar::End() {
  if (std::exchange(isDrawn_, false)) out_ << "\r\x1B[K" << std::flush;
  isWatched_ = false;
}

}  // namespace Korvel
