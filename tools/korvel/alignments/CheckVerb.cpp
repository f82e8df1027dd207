#include "tools/korvel/alignments/CheckVerb.h"

#include <cstddef>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/ElementFaults.h"
#include "tools/korvel/alignments/Elements.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::CountText;
using korvel::ElementFault;

constexpr const char* kHelp =
    "Every element is compared with what its own start and that of the next one ask for; a row "
    "tells\n"
    "what it has, what it should have, and the difference. Lengths and chainages may be off by\n"
    "1 mm, bearings by 0.001 gon, slopes by 0.1 %; a kink shows from 0.1 gon on, a break of slope\n"
    "from 10 %.\n"
    "\n"
    "--fix writes a corrected file, never over the one that is read. An element whose geometry "
    "can't\n"
    "be found (chord too long for the radius, no such clothoid, no end) stays as it is, and so do\n"
    "the chainages behind it. What is left to do by hand is told.\n"
    "\n"
    "Exit status: 0 if there are no faults; 1 if there are, mended or not; 2 for wrong use, or a\n"
    "file that can't be read or written.\n"
    "\n"
    "Examples:\n"
    "  korvel align check road.lin\n"
    "  korvel align check road.prf --fix mended.prf --csv\n";

struct CheckOptions {
  std::string file;
  std::string fix;
  korvel::ResultFormat format;
  bool verbose = false;
};

std::size_t ElementCount(const std::vector<ElementFault>& faults) {
  std::set<int> elements;
  for (const ElementFault& fault : faults) elements.insert(fault.index);
  return elements.size();
}

std::vector<korvel::ResultColumn> Columns() {
  constexpr int kDecimals = 4;
  return {{"record", "record", 0},
          {"element", "element"},
          {"kind", "kind"},
          {"chainage", "chainage m", kDecimals},
          {"fault", "fault"},
          {"stored", "stored", kDecimals},
          {"required", "required", kDecimals},
          {"difference", "difference", kDecimals},
          {"unit", "unit"}};
}

void PrintFaults(const CheckOptions& options, const std::vector<ElementFault>& faults,
                 std::size_t elements) {
  if (!options.format.csv && !options.format.json)
    std::cout << korvel::Printable(options.file) << ": " << CountText(elements, "element") << ", "
              << (faults.empty() ? "no faults"
                                 : CountText(faults.size(), "fault") + " at " +
                                       CountText(ElementCount(faults), "element"))
              << '\n';
  const auto writer = korvel::ResultWriter::Make(options.format, Columns(),
                                                 {{"file", korvel::JsonText(options.file)},
                                                  {"elements", elements},
                                                  {"faulty_elements", ElementCount(faults)}},
                                                 "faults", std::cout);
  for (const ElementFault& f : faults)
    writer->Add({static_cast<double>(f.index) + 1.0, f.number, f.kind, f.chainage, f.what, f.stored,
                 f.required, f.difference, f.unit});
  writer->End();
}

template <class File>
void WriteFixed(const CheckOptions& options, File& corrected,
                const korvel::LibraryMessages& messages) {
  const std::size_t left = korvel::CheckElements(corrected).faults.size();
  if (corrected.Save(options.fix.c_str()) != 0)
    throw korvel::InputError(options.fix + ": can't be written" +
                             messages.Explanation(options.fix));
  korvel::PrintError(options.fix + ": written with " +
                     (left == 0 ? "all faults mended" : CountText(left, "fault") + " left"));
}

template <class File>
int Check(const CheckOptions& options, const File& file, korvel::LibraryMessages& messages) {
  auto checked = korvel::CheckElements(file);
  PrintFaults(options, checked.faults, korvel::ElementsOf(file).size());
  messages.Clear();
  if (!options.fix.empty()) WriteFixed(options, checked.corrected, messages);
  return checked.faults.empty() ? korvel::kDone : korvel::kComputationFailed;
}

int RunCheckVerb(const CheckOptions& options) {
  korvel::RequireExtension(options.file, {".lin", ".prf"});
  const std::string extension = korvel::ExtensionOf(options.file);
  korvel::RequireExtension(options.fix, {extension});
  if (!options.fix.empty() && korvel::IsSameFile(options.file, options.fix))
    throw korvel::InputError(options.fix + ": is read from, and not overwritten");
  korvel::LibraryMessages messages(options.verbose);
  if (extension == ".lin") return Check(options, ReadLine(options.file, messages), messages);
  return Check(options, ReadProfile(options.file, messages), messages);
}

}  // namespace

void korvel::AddCheckVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("check", "find faults of line files and profiles");
  verb.footer(kHelp);
  CheckOptions& options = OptionsOf(verb, run, RunCheckVerb);
  verb.add_option("FILE", options.file, "line file or profile, .lin .prf")
      ->required()
      ->type_name("");
  verb.add_option("--fix", options.fix, "corrected file to write")->type_name("FILE");
  AddResultFormat(verb, options.format);
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}
