/// @file
/// The process-wide surroundings as a test needs them, put back at its end.
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "korvelfile/outside/base/Ghal.h"

/// Keeps the system messages for the life of a test.
class CaughtMessages {
 public:
  CaughtMessages()
      : former_(_GHAL::SetMessageSink([this](Korvel::LogLevel, std::string_view text) {
          const std::lock_guard lock(mutex_);
          texts_.emplace_back(text);
        })) {}
  ~CaughtMessages() { _GHAL::SetMessageSink(former_); }
  CaughtMessages(const CaughtMessages&) = delete;
  CaughtMessages& operator=(const CaughtMessages&) = delete;

  /// What came since the last call.
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(texts_, {});
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> texts_;
  _GHAL::MessageSink former_;
};

/// The identity that the golden files were written with.
inline void SetGoldenIdentity() {
  _GHAL::SetIdentity({L"Golden", L"1.0", L"4711", L"Surveyor", L"Company"});
}
