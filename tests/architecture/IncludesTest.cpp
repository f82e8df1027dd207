// The layers of the library, read from the #include lines: an arrow goes down, never up. They are
// described in docs/design.md.

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

/// Folders from the bottom up; a file may include from its own layer and those below.
/// dxf lies under coordinates, which loads drawings; of coordinates it sees the leaf headers only.
struct Layer {
  std::string_view folder;
  int height;
};
constexpr std::array kLayers{
    Layer{"korvelfile/outside/base/", 0},  Layer{"korvelfile/outside/xml/", 1},
    Layer{"korvelfile/outside/model/", 1}, Layer{"korvelfile/outside/services/", 1},
    Layer{"korvelfile/data/", 2},          Layer{"korvelfile/dxf/", 3},
    Layer{"korvelfile/coordinates/", 4},   Layer{"korvelfile/measurements/", 5},
    Layer{"korvelfile/alignments/", 5},    Layer{"korvelfile/corrections/", 5},
    Layer{"korvelfile/roadmodel/", 5},     Layer{"korvelfile/", 1},
};

/// Included from every folder; they include nothing of their own layer but each other.
constexpr std::array<std::string_view, 2> kLeaves{
    "korvelfile/coordinates/PointInfo.h", "korvelfile/coordinates/GraphicsObjectInterface.h"};

constexpr int kNotOfTheLibrary = 99;

bool IsLeaf(std::string_view path) {
  return std::find(kLeaves.begin(), kLeaves.end(), path) != kLeaves.end();
}

int Height(std::string_view path) {
  const auto layer = std::find_if(kLayers.begin(), kLayers.end(),
                                  [&](const Layer& l) { return path.starts_with(l.folder); });
  return layer == kLayers.end() ? kNotOfTheLibrary : layer->height;
}

bool IsPublicHeader(std::string_view path) {
  return path.ends_with(".h") && path.find("/internal/") == std::string_view::npos;
}

/// A leaf header stands as low as what it may include: the data layer.
int HeightOfIncluder(std::string_view path) { return IsLeaf(path) ? 2 : Height(path); }

/// What is wrong with one line of the file `path`, empty if nothing is.
std::string IncludeFault(std::string_view path, const std::string& line) {
  static const std::regex kInclude(R"re(\s*#\s*include\s*([<"])([^>"]*)[>"].*)re");
  static const std::regex kHiddenLibrary("(newmat|boost|expat).*", std::regex::icase);
  std::smatch match;
  if (!std::regex_match(line, match, kInclude)) return {};
  const std::string target = match[2];
  if (match[1] == "<") {
    const bool hidden = std::regex_match(target, kHiddenLibrary);
    return hidden && IsPublicHeader(path) ? "a public header needs " + target : "";
  }
  if (IsLeaf(target) || Height(target) <= HeightOfIncluder(path)) return {};
  return Height(target) == kNotOfTheLibrary ? target + " isn't given from the repository root"
                                            : "an arrow goes up to " + target;
}

TEST(Includes, FaultsAreFound) {
  constexpr struct {
    const char *path, *line;
    bool faulty;
  } kCases[] = {
      {"korvelfile/data/A.cpp", "#include \"korvelfile/outside/base/Vector.h\"", false},
      {"korvelfile/data/A.cpp", "#include \"korvelfile/data/B.h\"", false},
      {"korvelfile/data/A.cpp", "#include \"korvelfile/coordinates/B.h\"", true},
      {"korvelfile/data/A.cpp", "  # include \"korvelfile/coordinates/B.h\"  // why", true},
      {"korvelfile/data/A.cpp", "// #include \"korvelfile/coordinates/B.h\"", false},
      {"korvelfile/data/A.cpp", "#include \"korvelfile/coordinates/PointInfo.h\"", false},
      {"korvelfile/data/A.cpp", "#include \"B.h\"", true},
      {"korvelfile/data/A.cpp", "#include \"tools/korvel/B.h\"", true},
      {"korvelfile/outside/base/A.cpp", "#include \"korvelfile/Export.h\"", true},
      {"korvelfile/outside/services/A.h", "#include \"korvelfile/Export.h\"", false},
      {"korvelfile/coordinates/PointInfo.h", "#include \"korvelfile/coordinates/B.h\"", true},
      {"korvelfile/coordinates/A.cpp", "#include \"korvelfile/dxf/CDrawing.h\"", false},
      {"korvelfile/coordinates/A.cpp", "#include \"korvelfile/measurements/B.h\"", true},
      {"korvelfile/dxf/A.h", "#include \"korvelfile/coordinates/B.h\"", true},
      {"korvelfile/measurements/A.h", "#include <newmat.h>", true},
      {"korvelfile/measurements/A.h", "#include <newmatap.h>", true},
      {"korvelfile/measurements/A.h", "#include <boost/any.hpp>", true},
      {"korvelfile/measurements/A.cpp", "#include <newmat.h>", false},
      {"korvelfile/measurements/internal/A.h", "#include <newmat.h>", false},
      {"korvelfile/measurements/A.h", "#include <vector>", false},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(!IncludeFault(c.path, c.line).empty(), c.faulty) << c.path << ": " << c.line;
}

TEST(Includes, NoneGoesUpAndNoPublicHeaderNeedsAHiddenLibrary) {
  const std::filesystem::path root = KORVELFILE_SOURCE;
  int filesRead = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "korvelfile")) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    ++filesRead;
    const std::string path = entry.path().lexically_relative(root).generic_string();
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);)
      EXPECT_EQ(IncludeFault(path, line), "") << path << ": " << line;
  }
  EXPECT_GT(filesRead, 0);
}

}  // namespace
