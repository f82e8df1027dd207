#pragma once

#include <string_view>

#include "korvelfile/outside/base/Export.h"

class GeoFile;

/// True if `line` starts with `keyword`, whatever the case of its letters, and a blank or the end
/// of the line follows.
KORVELBASE_EXPORT bool HasKeyword(std::string_view line, std::string_view keyword);

/// Walks the lines of an object text file.
///
/// Indentation, tabs or blanks, is for the reader's eye and is taken off each line.
class KORVELBASE_EXPORT GeoFileTextInputStream {
 public:
  /// Stands on the first line.
  /// @param file open for reading; must outlive the stream
  explicit GeoFileTextInputStream(GeoFile& file);

  /// True while there is a current line.
  bool HasMore() const { return hasMore_; }

  /// The current line without indentation and line ending; empty behind the last one. Valid until
  /// the stream moves on.
  std::string_view GetLine() const { return line_; }

  /// Number of the current line in the file, from 1.
  int GetLineNumber() const { return lineNumber_; }

  /// True if the current line's keyword is `name`, see `HasKeyword`.
  bool CheckObjectName(std::string_view name) const;

  /// If the current line is exactly the word `tag`: true, and moves on. Else false.
  bool TestForTag(std::string_view tag);

  /// Moves to the next line.
  void NextLine();

  /// Tells by a system message that the file ends within a block; once for each stream.
  void ReportCutOff();

 private:
  GeoFile& file_;
  std::string_view line_;
  bool hasMore_ = false;
  int lineNumber_ = 0;
  bool isCutOffReported_ = false;
};
