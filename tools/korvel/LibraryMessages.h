#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "korvelfile/outside/base/Ghal.h"

namespace korvel {

/// Takes the library's system messages for its life, so that they stand where they help: with the
/// error that they explain.
class LibraryMessages {
 public:
  /// @param isVerbose true prints every message on standard error as it comes
  explicit LibraryMessages(bool isVerbose);
  ~LibraryMessages();
  LibraryMessages(const LibraryMessages&) = delete;
  LibraryMessages& operator=(const LibraryMessages&) = delete;

  /// Forgets what came so far.
  void Clear();

  /// What came since the last `Clear` and tells something about a fault of `path`, " (a; b)";
  /// nothing if there is nothing.
  std::string Explanation(const std::string& path) const;

 private:
  void Add(std::string_view text);

  bool isVerbose_;
  mutable std::mutex mutex_;
  std::vector<std::string> texts_;
  _GHAL::MessageSink former_;
};

}  // namespace korvel
