#include "tools/korvel/alignments/ListVerb.h"

#include <cmath>
#include <iostream>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/Elements.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::FiniteRadius;
using korvel::kPercent;
using korvel::ResultCell;
using korvel::ResultColumn;

constexpr int kMetres = 4;  // decimals
constexpr int kGon = 6;
constexpr int kSlope = 4;

struct ListOptions {
  std::string file;
  korvel::ResultFormat format;
  bool verbose = false;
};

/// The elements of a file as rows of a result.
struct ElementTable {
  std::vector<ResultColumn> columns;
  std::vector<std::vector<ResultCell>> rows;
};

ElementTable TableOf(const std::vector<TLin>& elements) {
  ElementTable table;
  table.columns = {{"element", "element"},
                   {"kind", "kind"},
                   {"chainage", "chainage m", kMetres},
                   {"length", "length m", kMetres},
                   {"north", "north m", kMetres},
                   {"east", "east m", kMetres},
                   {"bearing", "bearing gon", kGon},
                   {"radius", "radius m", kMetres},
                   {"end_radius", "end radius m", kMetres},
                   {"parameter", "A m", kMetres}};
  for (const TLin& e : elements)
    table.rows.push_back({e.GetElemNo(), korvel::KindOf(e), e.GetSection(), e.GetLength(), e.GetY(),
                          e.GetX(), e.GetBearing(), FiniteRadius(e.GetRadius()),
                          FiniteRadius(e.GetERadius()),
                          korvel::IsClothoid(e) ? std::fabs(e.GetParameter()) : kUndefined});
  return table;
}

ElementTable TableOf(const std::vector<TPrf>& elements) {
  ElementTable table;
  table.columns = {{"element", "element"},
                   {"kind", "kind"},
                   {"chainage", "chainage m", kMetres},
                   {"length", "length m", kMetres},
                   {"height", "height m", kMetres},
                   {"slope_percent", "slope %", kSlope},
                   {"radius", "radius m", kMetres}};
  for (const TPrf& e : elements)
    table.rows.push_back({std::string(e.GetElemNo()), korvel::KindOf(e), e.GetSection(),
                          e.GetLength(), e.GetZ(), e.GetSlope() * kPercent,
                          FiniteRadius(e.GetRadius())});
  return table;
}

ElementTable TableOf(const std::vector<korvel::CamberPoint>& points) {
  ElementTable table;
  table.columns = {{"element", "element"},
                   {"chainage", "chainage m", kMetres},
                   {"slope_1_percent", "slope 1 %", kSlope},
                   {"slope_2_percent", "slope 2 %", kSlope}};
  for (const korvel::CamberPoint& p : points)
    table.rows.push_back({p.number, p.chainage, p.slope1 * kPercent, p.slope2 * kPercent});
  return table;
}

ElementTable ReadTable(const std::string& path, korvel::LibraryMessages& messages) {
  korvel::RequireExtension(path, {".lin", ".prf", ".skv"});
  const std::string extension = korvel::ExtensionOf(path);
  if (extension == ".lin") return TableOf(korvel::ElementsOf(korvel::ReadLine(path, messages)));
  if (extension == ".prf") return TableOf(korvel::ElementsOf(korvel::ReadProfile(path, messages)));
  return TableOf(korvel::ElementsOf(korvel::ReadCamber(path, messages)));
}

int RunListVerb(const ListOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  const ElementTable table = ReadTable(options.file, messages);
  const auto writer =
      korvel::ResultWriter::Make(options.format, table.columns,
                                 {{"file", korvel::JsonText(options.file)}}, "elements", std::cout);
  for (const auto& row : table.rows) writer->Add(row);
  writer->End();
  return korvel::kDone;
}

}  // namespace

void korvel::AddListVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("list", "list the elements of a file");
  verb.footer(
      "Radii are positive where a line turns right and where a profile is a sag; a blank one is\n"
      "infinite. The last element is the end of the road.\n"
      "\n"
      "Exit status: 0; 2 for wrong use, or a file that can't be read.\n"
      "\n"
      "Examples:\n"
      "  korvel align list road.lin\n"
      "  korvel align list road.prf --csv\n");
  ListOptions& options = OptionsOf(verb, run, RunListVerb);
  verb.add_option("FILE", options.file, "line, profile or camber file, .lin .prf .skv")
      ->required()
      ->type_name("");
  AddResultFormat(verb, options.format);
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}
