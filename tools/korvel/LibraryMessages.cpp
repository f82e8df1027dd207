#include "tools/korvel/LibraryMessages.h"

#include <algorithm>
#include <iostream>

#include "tools/korvel/Printable.h"

namespace {

// How the file classes tell of progress.
bool IsProgress(std::string_view text) {
  return text.starts_with("Read collector file") || text.starts_with("writing changes");
}

}  // namespace

namespace korvel {

LibraryMessages::LibraryMessages(bool isVerbose)
    : isVerbose_(isVerbose),
      former_(
          _GHAL::SetMessageSink([this](Korvel::LogLevel, std::string_view text) { Add(text); })) {}

LibraryMessages::~LibraryMessages() { _GHAL::SetMessageSink(former_); }

void LibraryMessages::Add(std::string_view text) {
  const std::lock_guard lock(mutex_);
  texts_.emplace_back(text);
  if (isVerbose_) std::cerr << "library: " << Printable(text) << std::endl;
}

void LibraryMessages::Clear() {
  const std::lock_guard lock(mutex_);
  texts_.clear();
}

std::string LibraryMessages::Explanation(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  std::string all;
  for (const std::string& text : texts_) {
    if (IsProgress(text) || text == path) continue;
    all += (all.empty() ? " (" : "; ") + text;
  }
  return all.empty() ? all : all + ')';
}

}  // namespace korvel
