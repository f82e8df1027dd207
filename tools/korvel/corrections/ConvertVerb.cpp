#include "tools/korvel/corrections/ConvertVerb.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/WorkFolder.h"
#include "tools/korvel/corrections/BynSource.h"
#include "tools/korvel/corrections/GridShape.h"

namespace {

using korvel::GridShape;
using korvel::InputError;
using korvel::ValueRange;

constexpr double kHighestGeoid = 200.0;  // metres; the geoid of the earth stays within 110

constexpr const char* kHelp =
    "A source with the extension .byn is a geoid in the BYN format, with heights of either order "
    "of\n"
    "bytes. Any other is text: numbers for south, north, west and east limit, spacing of rows and "
    "of\n"
    "columns, then the heights row by row from the north, each from west to east; 9999 stands "
    "where\n"
    "there is none. Limits and spacings are degrees, or with --magic 778 as they stand, in metres\n"
    "say. The new file takes the place of an old one only if its heights make sense.\n"
    "\n"
    "Exit status: 0; 2 for wrong use, or a file that can't be read, written or believed.\n"
    "\n"
    "Examples:\n"
    "  korvel grid convert geoid.byn\n"
    "  korvel grid convert local.txt -o local.grd --magic 778\n";

struct ConvertOptions {
  std::string source;
  std::string out;
  int magic = GrdFile::kGeographicMagic;
};

bool IsByn(const std::string& path) { return korvel::ExtensionOf(path) == ".byn"; }

// The folder holds the source under the name "source", so that the new file comes to lie there.
void Convert(const ConvertOptions& options, const std::string& link) {
  Korvel::ProgressBar bar(korvel::Printable(options.source));
  const GrdFile::Progress progress = [&](double done) { bar.Show(done); };
  GrdFile file;
  bool isDone = false;
  if (IsByn(options.source)) {
    const std::endian order = korvel::CheckByn(options.source);
    if (order == std::endian::big)
      korvel::PrintError(options.source + ": heights are big endian; their bytes are swapped");
    isDone = file.ConvertCanadaBYN(link.c_str(), order, progress);
  } else {
    korvel::RequireReadable(options.source);
    isDone = file.ConvertText(link.c_str(), options.magic, progress);
  }
  if (!isDone) throw InputError(options.source + ": can't be converted to a geoid grid");
}

void CheckLimits(const GridShape& shape, const std::string& source) {
  const korvel::ModelExtent extent = shape.Extent();
  if (shape.isGeographic &&
      (extent.northMax > kHalfPi + 1e-9 || extent.northMin < -kHalfPi - 1e-9 ||
       extent.eastMax > 2.0 * kTwoPi || extent.eastMin < -kTwoPi))
    throw InputError(source + ": its limits are no degrees; --magic 778 takes them as they stand");
}

void CheckCount(const GridShape& shape, const std::string& source) {
  const std::int64_t size = _FileIO::FileSize(shape.path) - shape.start;
  if (size == shape.stride * shape.rows) return;
  throw InputError(source + ": its heights don't fill " + std::to_string(shape.rows) + " rows of " +
                   std::to_string(shape.columns) +
                   " columns, as its limits and spacings make them");
}

ValueRange HeightsOf(const GridShape& shape) {
  ValueRange heights;
  VisitRows(shape, [&](int, const std::vector<float>& values) {
    for (const float value : values) heights.Add(static_cast<double>(value));
  });
  return heights;
}

std::string RangeText(const ValueRange& heights) {
  return "heights from " + korvel::NumberText(heights.least, 3) + " to " +
         korvel::NumberText(heights.most, 3) + " m";
}

void CheckHeights(const ValueRange& heights, bool isGeoid, const std::string& source) {
  if (heights.count == 0) throw InputError(source + ": holds no height");
  if (std::max(-heights.least, heights.most) < kHighestGeoid) return;
  const std::string fault = source + ": " + RangeText(heights) + " are none of a geoid";
  if (isGeoid) throw InputError(fault);
  korvel::PrintError(fault);
}

std::string TargetOf(const ConvertOptions& options) {
  if (!options.out.empty()) return options.out;
  Korvel::FilePathT path(options.source);
  path.SetExtension("grd");
  return path.GetFullpath();
}

int RunConvertVerb(const ConvertOptions& options) {
  const std::string target = TargetOf(options);
  if (IsByn(options.source) && options.magic != GrdFile::kGeographicMagic)
    throw InputError(options.source + ": a BYN file has degrees; --magic is for text");
  if (korvel::IsSameFile(target, options.source))
    throw InputError(target + ": is the source, which is not overwritten");
  korvel::RequireReadable(options.source);
  const korvel::WorkFolder folder(target);
  Convert(options, folder.Link(options.source, "source.txt"));
  const GridShape shape = korvel::ReadGridShape(folder.Path("source.grd"));
  CheckLimits(shape, options.source);
  CheckCount(shape, options.source);
  const ValueRange heights = HeightsOf(shape);
  CheckHeights(heights, shape.isGeographic, options.source);
  folder.MoveToTarget("source.grd");
  std::cout << korvel::Printable(target) << ": " << shape.rows << " x " << shape.columns << ' '
            << RangeText(heights);
  if (heights.missing > 0) std::cout << ", " << heights.missing << " without value";
  std::cout << '\n';
  return korvel::kDone;
}

}  // namespace

void korvel::AddConvertVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("convert", "make a geoid grid from BYN or text");
  verb.footer(kHelp);
  ConvertOptions& options = OptionsOf(verb, run, RunConvertVerb);
  verb.add_option("SOURCE", options.source, "BYN or text file")->required()->type_name("");
  verb.add_option("-o,--output", options.out, "file to write; else SOURCE with .grd")
      ->type_name("FILE");
  verb.add_option("--magic", options.magic, "777: degrees; 778: numbers as they stand")
      ->check(CLI::IsMember({GrdFile::kGeographicMagic, GrdFile::kPlainMagic}).description(""))
      ->type_name("777|778")
      ->capture_default_str();
}
