/// @file
/// Rows and blocks of object text.
///
/// A row is a number of tabs, a keyword, a blank and comma-separated fields, ended by CR LF. The
/// rows of an object's children stand between the lines "begin" and "end".
#pragma once

#include <string>
#include <string_view>

#include "korvelfile/Export.h"

class GeoFileTextInputStream;
class Streamable;

/// Deepest entry of `gszIndent`.
inline constexpr int kDeepestIndent = 12;

/// Entry n is a text of n tabs.
KORVELFILE_EXPORT extern const char* const gszIndent[kDeepestIndent + 1];

/// Appends `depth` tabs, however many.
KORVELFILE_EXPORT void AppendIndent(std::string& out, int depth);

/// Replaces `out` by a row with the fields that `object` streams at `version`.
KORVELFILE_EXPORT void WriteObjectRow(int indent, std::string& out, const char* keyword,
                                      Streamable* object, int version);

/// Copies a row with a terminator into `buffer`, which has room for it; gives the row's length.
KORVELFILE_EXPORT int CopyRow(char* buffer, const std::string& row);

/// Reads the fields of a row into `object`.
///
/// @param line without its indentation
/// @return false, with `object` unchanged, if the row's keyword is another one
KORVELFILE_EXPORT bool ReadObjectRow(std::string_view line, std::string_view keyword,
                                     Streamable* object, const int& version);

/// True at the end of a block: takes its "end", or sends a system message where the file is cut off
/// within it, which counts as its end.
KORVELFILE_EXPORT bool EndsBlock(GeoFileTextInputStream& in);
