#include "tools/korvel/corrections/ModelInfoVerb.h"

#include <string>
#include <vector>

#include "tools/korvel/AngleOption.h"
#include "tools/korvel/SummaryText.h"
#include "tools/korvel/corrections/ModelSummary.h"

namespace {

struct ModelInfoOptions {
  std::vector<std::string> files;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
  bool json = false;
};

int RunModelInfoVerb(const ModelInfoOptions& options) {
  return korvel::PrintSummaries(options.files, options.json, [&](const std::string& path) {
    return korvel::SummarizeModel(path, options.angles);
  });
}

}  // namespace

void korvel::AddModelInfoVerb(CLI::App& group, VerbRun& run, const char* what) {
  CLI::App& verb = *group.add_subcommand("info", what);
  verb.footer(
      "What a file is, is told by how it begins, whatever its name.\n"
      "\n"
      "Exit status: 0; 2 if a file can't be read (the others are shown all the same).\n");
  ModelInfoOptions& options = OptionsOf(verb, run, RunModelInfoVerb);
  verb.add_option("FILE", options.files, "files to look into")->required()->type_name("");
  verb.add_flag("--json", options.json, "print an array with one JSON object for each file");
  AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
}
