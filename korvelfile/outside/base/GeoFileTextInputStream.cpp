#include "korvelfile/outside/base/GeoFileTextInputStream.h"

#include <cstddef>
#include <string>

#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Text.h"

bool HasKeyword(std::string_view line, std::string_view keyword) {
  const std::size_t length = keyword.size();
  if (line.size() < length || (line.size() > length && line[length] != ' ')) return false;
  return line.starts_with(keyword) || EqualNoCase(line.substr(0, length), keyword);
}

GeoFileTextInputStream::GeoFileTextInputStream(GeoFile& file) : file_(file) { NextLine(); }

void GeoFileTextInputStream::NextLine() {
  hasMore_ = file_.ReadLine(line_);
  if (!hasMore_) {
    line_ = {};
    return;
  }
  ++lineNumber_;
  while (!line_.empty() && (line_.front() == '\t' || line_.front() == ' ')) line_.remove_prefix(1);
}

bool GeoFileTextInputStream::CheckObjectName(std::string_view name) const {
  return hasMore_ && HasKeyword(line_, name);
}

bool GeoFileTextInputStream::TestForTag(std::string_view tag) {
  if (!hasMore_ || line_ != tag) return false;
  NextLine();
  return true;
}

void GeoFileTextInputStream::ReportCutOff() {
  if (isCutOffReported_) return;
  isCutOffReported_ = true;
  _GHAL::SystemMessage("File is cut off after line " + std::to_string(lineNumber_));
}
