#include "tools/korvel/InfoVerb.h"

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "tools/korvel/FileSummary.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/SummaryText.h"

namespace {

constexpr const char* kExamples =
    "Formats: .geo .llc .pxy .tun (points and lines), .plm (polar measurements), .lvt "
    "(levelling),\n"
    ".atr (attribute definitions), .lin .prf .skv (alignments). Grids and networks of corrections "
    "are told by how they begin.\n"
    "Coordinates are metres; x is east, y is north. Latitude and longitude are degrees.\n"
    "\n"
    "Exit status: 0; 2 if a file can't be read (the others are shown all the same).\n"
    "\n"
    "Examples:\n"
    "  korvel info job.plm known.geo\n"
    "  korvel info --json known.geo\n";

struct InfoOptions {
  std::vector<std::string> files;
  bool json = false;
  bool verbose = false;
};

int RunInfoVerb(const InfoOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  return korvel::PrintSummaries(options.files, options.json, [&](const std::string& path) {
    return korvel::SummarizeFile(path, messages);
  });
}

}  // namespace

void korvel::AddInfoVerb(CLI::App& app, VerbRun& run) {
  CLI::App& verb = *app.add_subcommand("info", "tell what files hold");
  verb.footer(kExamples);
  InfoOptions& options = OptionsOf(verb, run, RunInfoVerb);
  verb.add_option("FILE", options.files, "files to look into")->required()->type_name("");
  verb.add_flag("--json", options.json, "print an array with one JSON object for each file");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}
