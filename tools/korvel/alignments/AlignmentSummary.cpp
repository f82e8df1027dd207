#include "tools/korvel/alignments/AlignmentSummary.h"

#include <cmath>
#include <map>

#include "tools/korvel/FileFault.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/alignments/ElementFaults.h"
#include "tools/korvel/alignments/Elements.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::Json;
using korvel::kPercent;
using korvel::LibraryMessages;
using korvel::ValueRange;

Json Begin(const std::string& path, const char* format) {
  return {{"file", korvel::JsonText(path)}, {"format", format}};
}

template <class Elements>
void AddKinds(const Elements& elements, Json& summary) {
  std::map<std::string, int> kinds;
  for (const auto& element : elements) ++kinds[korvel::KindOf(element)];
  kinds.erase("end");
  summary["elements"] = elements.size();
  summary["kinds"] = Json::object();
  for (const auto& [kind, count] : kinds) summary["kinds"][kind] = count;
}

void AddRange(Json& summary, const char* key, const ValueRange& range) {
  if (range.count > 0) summary[key] = range.ToJson();
}

template <class File>
void AddFaults(const File& file, Json& summary) {
  summary["faults"] = korvel::CheckElements(file).faults.size();
}

Json Line(const std::string& path, LibraryMessages& messages) {
  const LinFile file = korvel::ReadLine(path, messages);
  const std::vector<TLin> elements = korvel::ElementsOf(file);
  Json summary = Begin(path, "line file");
  AddKinds(elements, summary);
  ValueRange north, east, radius, parameter;
  for (const TLin& element : elements) {
    north.Add(element.GetY());
    east.Add(element.GetX());
    for (const double r : {element.GetRadius(), element.GetERadius()})
      if (r != 0.0) radius.Add(std::fabs(r));
    if (korvel::IsClothoid(element)) parameter.Add(std::fabs(element.GetParameter()));
  }
  if (!elements.empty()) {
    summary["length"] = korvel::JsonNumber(file.GetStopSection() - file.GetStartSection());
    summary["chainage"] = {{"min", korvel::JsonNumber(file.GetStartSection())},
                           {"max", korvel::JsonNumber(file.GetStopSection())}};
  }
  AddRange(summary, "north", north);
  AddRange(summary, "east", east);
  AddRange(summary, "radius", radius);
  AddRange(summary, "parameter", parameter);
  AddFaults(file, summary);
  return summary;
}

Json Profile(const std::string& path, LibraryMessages& messages) {
  const PrfFile file = korvel::ReadProfile(path, messages);
  const std::vector<TPrf> elements = korvel::ElementsOf(file);
  Json summary = Begin(path, "profile");
  AddKinds(elements, summary);
  ValueRange chainage, height, slope, radius;
  for (const TPrf& element : elements) {
    chainage.Add(element.GetSection());
    chainage.Add(element.GetSection() + element.GetLength());
    height.Add(element.GetZ());
    slope.Add(element.GetSlope() * kPercent);
    if (element.GetRadius() != 0.0) radius.Add(std::fabs(element.GetRadius()));
  }
  AddRange(summary, "chainage", chainage);
  AddRange(summary, "height", height);
  AddRange(summary, "slope_percent", slope);
  AddRange(summary, "radius", radius);
  AddFaults(file, summary);
  return summary;
}

Json Camber(const std::string& path, LibraryMessages& messages) {
  const SkvFile file = korvel::ReadCamber(path, messages);
  Json summary = Begin(path, "camber file");
  ValueRange chainage, slope1, slope2;
  for (const korvel::CamberPoint& point : korvel::ElementsOf(file)) {
    chainage.Add(point.chainage);
    slope1.Add(point.slope1 * kPercent);
    slope2.Add(point.slope2 * kPercent);
  }
  summary["points"] = chainage.count;
  AddRange(summary, "chainage", chainage);
  AddRange(summary, "slope_1_percent", slope1);
  AddRange(summary, "slope_2_percent", slope2);
  return summary;
}

}  // namespace

korvel::Json korvel::SummarizeAlignment(const std::string& path, LibraryMessages& messages) {
  RequireExtension(path, {".lin", ".prf", ".skv"});
  const std::string extension = ExtensionOf(path);
  if (extension == ".lin") return Line(path, messages);
  return extension == ".prf" ? Profile(path, messages) : Camber(path, messages);
}
