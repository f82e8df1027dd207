#include "tools/korvel/InfoVerb.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "tools/korvel/FileSummary.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/SummaryText.h"

namespace {

constexpr const char* kExamples =
    "Formats: .geo .llc .pxy .tun (points and lines), .plm (polar measurements), .lvt "
    "(levelling),\n"
    ".atr (attribute definitions). Coordinates are metres; x is east, y is north.\n"
    "\n"
    "Exit status: 0; 2 if a file can't be read (the others are shown all the same).\n"
    "\n"
    "Examples:\n"
    "  korvel info job.plm known.geo\n"
    "  korvel info --json known.geo\n";

}  // namespace

void korvel::AddInfoVerb(CLI::App& app, InfoOptions& options) {
  CLI::App& verb = *app.add_subcommand("info", "tell what files hold");
  verb.footer(kExamples);
  verb.add_option("FILE", options.files, "files to look into")->required()->type_name("");
  verb.add_flag("--json", options.json, "print an array with one JSON object for each file");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

int korvel::RunInfoVerb(const InfoOptions& options) {
  LibraryMessages messages(options.verbose);
  Json summaries = Json::array();
  int status = kDone;
  for (const std::string& path : options.files) {
    try {
      summaries.push_back(SummarizeFile(path, messages));
      if (!options.json) PrintSummary(summaries.back(), std::cout);
    } catch (const InputError& error) {
      status = kBadInput;
      PrintError(error.what());
      summaries.push_back({{"file", JsonText(path)}, {"error", JsonText(error.what())}});
    }
  }
  if (options.json) PrintJson(summaries, std::cout);
  return status;
}
