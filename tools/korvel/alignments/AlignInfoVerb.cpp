#include "tools/korvel/alignments/AlignInfoVerb.h"

#include <string>
#include <vector>

#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/SummaryText.h"
#include "tools/korvel/alignments/AlignmentSummary.h"

namespace {

struct AlignInfoOptions {
  std::vector<std::string> files;
  bool json = false;
  bool verbose = false;
};

int RunAlignInfoVerb(const AlignInfoOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  return korvel::PrintSummaries(options.files, options.json, [&](const std::string& path) {
    return korvel::SummarizeAlignment(path, messages);
  });
}

}  // namespace

void korvel::AddAlignInfoVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("info", "tell what line, profile and camber files hold");
  verb.footer(
      "Metres; slopes are per cent.\n"
      "\n"
      "Exit status: 0; 2 if a file can't be read (the others are shown all the same).\n");
  AlignInfoOptions& options = OptionsOf(verb, run, RunAlignInfoVerb);
  verb.add_option("FILE", options.files, "files to look into, .lin .prf .skv")
      ->required()
      ->type_name("");
  verb.add_flag("--json", options.json, "print an array with one JSON object for each file");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}
