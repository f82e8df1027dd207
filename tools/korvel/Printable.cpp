#include "tools/korvel/Printable.h"

#include <algorithm>

#include "korvelfile/outside/base/Text.h"

namespace {

// Widen carries a byte b that is no UTF-8 as this plus b.
constexpr wchar_t kForeignByte = 0xDC00;

bool IsForeignByte(wchar_t c) { return c >= kForeignByte + 0x80 && c <= kForeignByte + 0xFF; }

bool IsControl(wchar_t c) { return (c < 0x20 && c != L'\n') || (c >= 0x7F && c < 0xA0); }

std::wstring WideText(std::string_view text) {
  std::wstring wide = Widen(text);
  for (wchar_t& c : wide)
    if (IsForeignByte(c)) c = static_cast<wchar_t>(c - kForeignByte);
  return wide;
}

}  // namespace

std::string korvel::ToUtf8(std::string_view text) { return Narrow(WideText(text)); }

std::string korvel::Printable(std::string_view text) {
  std::wstring wide = WideText(text);
  std::replace_if(wide.begin(), wide.end(), IsControl, L'?');
  return Narrow(wide);
}

std::size_t korvel::CharacterCount(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}
