#include "korvelfile/outside/base/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::uint32_t kEscapedByte = 0xDC00;
constexpr std::uint32_t kReplacement = 0xFFFD;

struct Utf8Lead {
  std::size_t length;
  std::uint32_t bits;
  std::uint32_t smallest;  // shorter forms of the same code point are not valid
};

Utf8Lead LeadOf(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if ((byte & 0xE0U) == 0xC0) return {2, byte & 0x1FU, 0x80};
  if ((byte & 0xF0U) == 0xE0) return {3, byte & 0x0FU, 0x800};
  if ((byte & 0xF8U) == 0xF0) return {4, byte & 0x07U, 0x10000};
  return {0, 0, 0};
}

bool IsSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

// Takes one code point from the front of `text`, or one escaped byte where it is no valid UTF-8.
std::uint32_t TakeCodePoint(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const Utf8Lead lead = LeadOf(first);
  std::uint32_t code = lead.bits;
  bool valid = lead.length > 0 && lead.length <= text.size();
  for (std::size_t i = 1; valid && i < lead.length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    valid = (byte & 0xC0U) == 0x80;
    code = (code << 6U) | (byte & 0x3FU);
  }
  valid = valid && code >= lead.smallest && code <= 0x10FFFF && !IsSurrogate(code);
  text.remove_prefix(valid ? lead.length : 1);
  return valid ? code : kEscapedByte + first;
}

void AppendUtf8(std::string& out, std::uint32_t code) {
  const auto tail = [&](unsigned shift) {
    out += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    tail(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0U | (code >> 12U));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0U | (code >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

std::string FirstCommaToPoint(std::string text) {
  const std::size_t comma = text.find(',');
  if (comma != std::string::npos) text[comma] = '.';
  return text;
}

std::wstring Widen(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) wide += static_cast<wchar_t>(TakeCodePoint(text));
  return wide;
}

std::string Narrow(std::wstring_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (const wchar_t c : text) {
    const auto code = static_cast<std::uint32_t>(c);
    if (code >= kEscapedByte + 0x80 && code <= kEscapedByte + 0xFF) {
      narrow += static_cast<char>(code - kEscapedByte);
    } else {
      AppendUtf8(narrow, code <= 0x10FFFF ? code : kReplacement);
    }
  }
  return narrow;
}
