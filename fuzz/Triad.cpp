// Reads a triad file, looks for triangles as a plain scan does, asks for corrections and draws
// sections.
// Seeds: fuzz/seeds/triad tests/golden/triad

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "fuzz/support/Harness.h"
#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/Angles.h"

namespace {

constexpr int kTrianglesAsked = 40;

class Triads : public LmvTriadFile {
 public:
  // By the rule as it is told: last time's triangle, its neighbours, all.
  int LocatePlainly(const Vector& p) {
    if (last_ >= 0 && Holds(p, last_)) return last_;
    int found = last_ < 0 ? -1 : PointInsideNeighbourTriangle(p, last_, -1, 5);
    for (int t = 0; found < 0 && t < GetNumTriangles(); ++t)
      if (Holds(p, t)) found = t;
    if (found >= 0) last_ = found;
    return found;
  }

  void Ask(const Vector& p) {
    const int expected = LocatePlainly(p);
    fuzz::Require(LocateTriangle(p) == expected, "another triangle than the plain scan's");
    Vector3d correction;
    if (GetCorrections(p.y, p.x, correction)) {
      fuzz::Require(std::isfinite(correction.x) && std::isfinite(correction.y),
                    "a correction is not finite");
    }
  }

  void AskInverse(const Vector& p) const {
    Vector3d correction;
    GetInverseCorrections(p.y, p.x, correction);
    GetCrossSection(p, p.x);
    GetCrossSection(p, kHalfPi);
  }

  const Vector& Corner(int triangle, std::size_t i) const {
    return Point(static_cast<std::size_t>(Triangle(static_cast<std::size_t>(triangle)).vertex[i]));
  }

 private:
  bool Holds(const Vector& p, int t) const {
    return PointInsideTriangle(p, Corner(t, 0), Corner(t, 1), Corner(t, 2));
  }

  int last_ = -1;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("net.triad");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  Triads file;
  if (!file.OpenFile(Widen(path))) return 0;
  for (int t = 0; t < std::min(file.GetNumTriangles(), kTrianglesAsked); ++t) {
    for (std::size_t i = 0; i < 3; ++i) {
      const Vector& a = file.Corner(t, i);
      const Vector& b = file.Corner(t, (i + 1) % 3);
      for (const double share : {0.0, 0.3, 0.5, 1.0000001}) file.Ask(a + share * (b - a));
      file.Ask({std::nextafter(a.x, b.y), std::nextafter(a.y, b.x)});
      file.Ask((a + b + file.Corner(t, (i + 2) % 3)) * (1.0 / 3.0));
    }
  }
  for (int t = 0; t < std::min(file.GetNumTriangles(), 4); ++t) file.AskInverse(file.Corner(t, 0));
  return 0;
}
