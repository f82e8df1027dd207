#include "korvelfile/outside/base/String.h"

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include <locale.h>

namespace {

struct Spelling {
  char plain;
  char spelled;  // stands behind a backslash
};

constexpr Spelling kSpellings[] = {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'\\', '\\'}, {'"', '"'}};

const Spelling* FindPlain(char c) {
  const auto* found = std::find_if(std::begin(kSpellings), std::end(kSpellings),
                                   [c](const Spelling& s) { return s.plain == c; });
  return found == std::end(kSpellings) ? nullptr : found;
}

const Spelling* FindSpelled(char c) {
  const auto* found = std::find_if(std::begin(kSpellings), std::end(kSpellings),
                                   [c](const Spelling& s) { return s.spelled == c; });
  return found == std::end(kSpellings) ? nullptr : found;
}

// Holds this thread in the C locale, so that printf writes a decimal point.
class CLocaleScope {
 public:
  CLocaleScope() : previous_(uselocale(CLocale())) {}
  ~CLocaleScope() { uselocale(previous_); }
  CLocaleScope(const CLocaleScope&) = delete;
  CLocaleScope& operator=(const CLocaleScope&) = delete;

 private:
  static locale_t CLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }
  locale_t previous_;
};

}  // namespace

bool String::NeedsQuoting(std::string_view text) {
  // Four of the five lie below '#', so that one comparison lets nearly every character pass.
  return std::any_of(text.begin(), text.end(), [](char c) {
    return (c < '#' && (c == '"' || c == '\n' || c == '\r' || c == '\t')) || c == '\\';
  });
}

void String::AppendQuoted(std::string& out, std::string_view text) {
  out += '"';
  if (NeedsQuoting(text)) {
    for (const char c : text) {
      const Spelling* spelling = FindPlain(c);
      if (spelling) out += '\\';
      out += spelling ? spelling->spelled : c;
    }
  } else {
    out += text;
  }
  out += '"';
}

String String::QuoteString(std::string_view text) {
  String quoted;
  AppendQuoted(quoted, text);
  return quoted;
}

String String::Unquote(std::string_view quoted) {
  String text;
  text.reserve(quoted.size());
  for (std::size_t i = 0; i < quoted.size(); ++i) {
    const Spelling* spelling =
        quoted[i] == '\\' && i + 1 < quoted.size() ? FindSpelled(quoted[i + 1]) : nullptr;
    text += spelling ? spelling->plain : quoted[i];
    if (spelling) ++i;
  }
  return text;
}

std::string SF::dformat(const char* format, ...) {
  const CLocaleScope cLocale;
  std::va_list arguments;
  va_start(arguments, format);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::vector<char> text(length < 0 ? 1 : static_cast<std::size_t>(length) + 1);
  if (length >= 0) std::vsnprintf(text.data(), text.size(), format, again);
  va_end(again);
  if (length < 0) throw std::invalid_argument("SF::dformat: format refused by the C library");
  return {text.data(), static_cast<std::size_t>(length)};
}
