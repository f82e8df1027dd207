#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

namespace Korvel {

/// How weighty a system message is; the library's own messages carry 2.
struct LogLevel {
  int value;

  constexpr LogLevel(int level) : value(level) {}
  friend constexpr bool operator==(LogLevel, LogLevel) = default;
};

/// Level of all messages that say nothing else.
inline constexpr LogLevel kDefaultLogLevel{2};

/// Who writes a file: stamped into the header of every file written.
struct Identity {
  std::wstring productName;
  std::wstring productVersion;
  std::wstring productSerial;
  std::wstring userName;
  std::wstring userCompany;
};

}  // namespace Korvel

/// The process-wide surroundings: system messages and the identity of application and user.
///
/// All functions are safe from any thread.
class KORVELBASE_EXPORT _GHAL {
 public:
  /// Takes one message. May be called from several threads at once.
  using MessageSink = std::function<void(Korvel::LogLevel level, std::string_view text)>;

  /// Hands `text` to the sink.
  static void SystemMessage(Korvel::LogLevel level, std::string_view text);

  /// The same at the level of the library's own messages.
  static void SystemMessage(std::string_view text) {
    SystemMessage(Korvel::kDefaultLogLevel, text);
  }

  /// Replaces the sink; an empty function brings back the first one, which writes each message as
  /// a line to standard error. A message under way on another thread may still reach the old sink.
  /// @return the sink that was in place, to be put back later
  static MessageSink SetMessageSink(MessageSink sink);

  /// Replaces the identity. Until then the product is this library, serial and company are empty,
  /// and the user is the login name of the process's owner.
  static void SetIdentity(const Korvel::Identity& identity);

  static std::wstring GetProductName();
  static std::wstring GetProductVersion();
  static std::wstring GetProductSerial();
  static std::wstring GetUsername();
  static std::wstring GetUserCompany();
};

using GHAL = _GHAL;
