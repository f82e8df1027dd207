#include "korvelfile/outside/base/Ghal.h"

#include <array>
#include <mutex>
#include <utility>

#include <pwd.h>
#include <unistd.h>

#include "korvelfile/outside/base/Text.h"

namespace {

// One write, so that lines of several threads don't mix.
void WriteToStandardError(Korvel::LogLevel /*level*/, std::string_view text) {
  const std::string line = std::string(text) + '\n';
  [[maybe_unused]] const auto written = write(STDERR_FILENO, line.data(), line.size());
}

std::string LoginName() {
  std::array<char, 1024> texts;
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
  return found ? found->pw_name : "";
}

Korvel::Identity DefaultIdentity() {
  return {L"KorvelFile", Widen(KORVELBASE_VERSION), L"", Widen(LoginName()), L""};
}

// Never destroyed, so that collectors of static life can still send a message.
struct Surroundings {
  std::mutex mutex;
  _GHAL::MessageSink sink = WriteToStandardError;
  Korvel::Identity identity = DefaultIdentity();

  static Surroundings& Get() {
    static auto* const surroundings = new Surroundings;
    return *surroundings;
  }
};

std::wstring IdentityText(std::wstring Korvel::Identity::*text) {
  Surroundings& surroundings = Surroundings::Get();
  const std::lock_guard lock(surroundings.mutex);
  return surroundings.identity.*text;
}

}  // namespace

void _GHAL::SystemMessage(Korvel::LogLevel level, std::string_view text) {
  Surroundings& surroundings = Surroundings::Get();
  MessageSink sink;
  {
    const std::lock_guard lock(surroundings.mutex);
    sink = surroundings.sink;
  }
  sink(level, text);  // outside the lock: a sink may send messages itself
}

_GHAL::MessageSink _GHAL::SetMessageSink(MessageSink sink) {
  Surroundings& surroundings = Surroundings::Get();
  const std::lock_guard lock(surroundings.mutex);
  return std::exchange(surroundings.sink, sink ? std::move(sink) : WriteToStandardError);
}

void _GHAL::SetIdentity(const Korvel::Identity& identity) {
  Surroundings& surroundings = Surroundings::Get();
  const std::lock_guard lock(surroundings.mutex);
  surroundings.identity = identity;
}

std::wstring _GHAL::GetProductName() { return IdentityText(&Korvel::Identity::productName); }
std::wstring _GHAL::GetProductVersion() { return IdentityText(&Korvel::Identity::productVersion); }
std::wstring _GHAL::GetProductSerial() { return IdentityText(&Korvel::Identity::productSerial); }
std::wstring _GHAL::GetUsername() { return IdentityText(&Korvel::Identity::userName); }
std::wstring _GHAL::GetUserCompany() { return IdentityText(&Korvel::Identity::userCompany); }
