#pragma once

#include <string>

namespace internal {

/// `name` up to the first `separator`; empty if there is none. So "12.1004" is of the line "12".
inline std::string LineNumberOf(const std::string& name, char separator) {
  const std::size_t end = name.find(separator);
  return end == std::string::npos ? std::string() : name.substr(0, end);
}

/// What follows the first `separator` of `name`; the whole name if there is none.
inline std::string WithoutLineNumber(const std::string& name, char separator) {
  return name.substr(name.find(separator) + 1);
}

/// True if both names have the same line number before a ".", and that isn't empty.
inline bool HaveSameLineNumber(const std::string& a, const std::string& b) {
  const std::string line = LineNumberOf(a, '.');
  return !line.empty() && line == LineNumberOf(b, '.');
}

}  // namespace internal
