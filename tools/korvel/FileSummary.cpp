#include "tools/korvel/FileSummary.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/CollectorSummaries.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/alignments/AlignmentSummary.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/ModelSummary.h"

namespace {

using korvel::Json;
using korvel::LibraryMessages;

Json Read(DataCollectionInterface& file, const std::string& path, const std::string& kind,
          LibraryMessages& messages) {
  messages.Clear();
  if (file.UseCollector() != 0)
    throw korvel::InputError(korvel::DescribeReadFault(path, file, "a " + kind, messages));
  return {{"file", korvel::JsonText(path)}, {"format", kind}};
}

Json Coordinates(const std::string& path, LibraryMessages& messages) {
  PxyCoordinateFile file(false);
  file.ChooseFile(path.c_str());
  Json summary = Read(file, path, "coordinate file", messages);
  korvel::AddCoordinates(file, summary);
  return summary;
}

Json Measurements(const std::string& path, LibraryMessages& messages) {
  MeasurementFile file;
  file.ChooseFile(path.c_str());
  Json summary = Read(file, path, "measurement file", messages);
  korvel::AddMeasurements(file, summary);
  return summary;
}

Json Levelling(const std::string& path, LibraryMessages& messages) {
  LevFile file;
  file.SetFile(Widen(path));
  Json summary = Read(file, path, "levelling file", messages);
  korvel::AddLevelling(file, summary);
  return summary;
}

Json Attributes(const std::string& path, LibraryMessages& messages) {
  AttributeFile file;
  file.ChooseFile(path.c_str());
  Json summary = Read(file, path, "file of attribute definitions", messages);
  korvel::AddAttributeDefinitions(file, summary);
  return summary;
}

struct Format {
  std::string_view extension;
  Json (*summarize)(const std::string& path, LibraryMessages& messages);
};

constexpr std::array kFormats{
    Format{".geo", Coordinates},
    Format{".llc", Coordinates},
    Format{".pxy", Coordinates},
    Format{".tun", Coordinates},
    Format{".plm", Measurements},
    Format{".lvt", Levelling},
    Format{".atr", Attributes},
    Format{".lin", korvel::SummarizeAlignment},
    Format{".prf", korvel::SummarizeAlignment},
    Format{".skv", korvel::SummarizeAlignment},
};

}  // namespace

korvel::Json korvel::SummarizeFile(const std::string& path, LibraryMessages& messages) {
  const std::string extension = ExtensionOf(path);
  const auto format = std::find_if(kFormats.begin(), kFormats.end(),
                                   [&](const Format& f) { return f.extension == extension; });
  if (format != kFormats.end()) return format->summarize(path, messages);
  if (IsModel(path)) return SummarizeModel(path, FindAngleUnit("deg"));
  std::string known;
  for (const Format& f : kFormats) known += ' ' + std::string(f.extension);
  throw InputError(path + ": no format of this extension, and no model of corrections; there are" +
                   known);
}
