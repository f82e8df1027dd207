#include "korvelfile/data/ObjectText.h"

#include <cstddef>

#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/DataTextInputStream.h"
#include "korvelfile/outside/base/DataTextOutputStream.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Ghal.h"

const char* const gszIndent[kDeepestIndent + 1] = {
    "",
    "\t",
    "\t\t",
    "\t\t\t",
    "\t\t\t\t",
    "\t\t\t\t\t",
    "\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t\t\t\t\t",
    "\t\t\t\t\t\t\t\t\t\t\t\t",
};

void AppendIndent(std::string& out, int depth) {
  if (depth <= kDeepestIndent) {
    out += gszIndent[depth];
  } else {
    out.append(static_cast<std::size_t>(depth), '\t');
  }
}

void WriteObjectRow(int indent, std::string& out, const char* keyword, Streamable* object,
                    int version) {
  out.clear();
  AppendIndent(out, indent);
  out += keyword;
  out += ' ';
  DataTextOutputStream fields(out, 0);
  object->Stream(fields, version);
  out += "\r\n";
}

int CopyRow(char* buffer, const std::string& row) {
  row.copy(buffer, row.size());
  buffer[row.size()] = '\0';
  return static_cast<int>(row.size());
}

bool ReadObjectRow(std::string_view line, std::string_view keyword, Streamable* object,
                   const int& version) {
  if (!HasKeyword(line, keyword)) return false;
  DataTextInputStream fields(line.substr(keyword.size()));
  object->Stream(fields, version);
  return true;
}

bool EndsBlock(GeoFileTextInputStream& in) {
  if (in.HasMore()) return in.TestForTag("end");
  in.ReportCutOff();
  return true;
}
