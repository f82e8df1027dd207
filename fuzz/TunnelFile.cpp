// Reads a coordinate file as a tunnel outline, stations points on it, makes parallel outlines, and
// writes and reads it again. The first byte tells the kind of file.
// Seeds: fuzz/seeds/tunnel

#include <cmath>
#include <memory>
#include <string>

#include "fuzz/support/Harness.h"
#include "korvelfile/alignments/TunFile.h"
#include "korvelfile/outside/model/LineFactory.h"

namespace {

// What follows is long for long inputs.
constexpr std::size_t kEnough = 4000;

bool IsFinite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }

void Ask(const TunFile& outline) {
  const double end = outline.GetEndArc();
  for (const double arc : {0.0, 0.25 * end, 0.5 * end, end}) {
    Vector position;
    double direction = 0.0;
    double offset = 0.0;
    double arcLength = 0.0;
    if (outline.GetDirAndPosFromArc(arc, &position, &direction))
      fuzz::Require(IsFinite(position) && std::isfinite(direction), "a place that is none");
    outline.GetSideAndHeight(arc, 0.5, position.x, position.y);
    if (outline.GetTunOffsAndArcLenAtPreferredElement(position.x, position.y, arc, offset,
                                                      arcLength))
      fuzz::Require(std::isfinite(offset) && std::isfinite(arcLength), "a station that is none");
    outline.GetTunOffsAndArcLen(position.y, position.x, offset, arcLength);
  }
}

void CheckRewrite(TunFile& outline, const std::string& path) {
  fuzz::Require(outline.Save(path.c_str()) == 0, "an outline can't be written");
  // Elements may come apart or together where columns round their ends and cut their radii.
  TunFile again(std::make_shared<Model::LineFactory>());
  const int result = again.Open(path.c_str());
  fuzz::Require(result == 0 || result == -9, "a written outline isn't there");
  fuzz::Require(result != 0 || again.GetNumNodes() == outline.GetNumNodes(), "elements got lost");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || size > kEnough) return 0;
  const char* const name = data[0] == 'g' ? "outline.geo" : "outline.tun";
  const std::string path = fuzz::PathInMemory(name);
  fuzz::WriteBytes(path, fuzz::Input(data, size).substr(1));
  TunFile outline(std::make_shared<Model::LineFactory>());
  outline.Open(path.c_str());
  Ask(outline);
  for (const double offset : {0.1, -1.0}) {
    TunFile beside(std::make_shared<Model::LineFactory>());
    if (!outline.GetOffsetSection(offset, beside)) continue;
    fuzz::Require(beside.GetNumNodes() == outline.GetNumNodes(), "a parallel of another chain");
    Ask(beside);
  }
  CheckRewrite(outline, path);
  return 0;
}
