#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/alignments/GeoFileLinPrfProxy.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"

namespace {

using File::GeoFileLinPrfProxy;
using UsePointsAs = GeoFileLinPrfProxy::UsePointsAs;

std::string Point(const char* name, double x, double y, double z, const char* radius = "") {
  return SF::dformat("%-12s  %12.4f%12.4f%12.4f          %-2s%-12s,\r\n", name, y, x, z,
                     *radius ? "R" : "", radius);
}

class GeoFileLinPrfProxyTest : public testing::Test {
 protected:
  GeoFileLinPrfProxyTest() {
    WriteBytes(path_, "\r\n\r\n" + Point("a", 0, 0, 10) + Point("b", 30, 40, 15, "50") +
                          Point("c", 80, 90, 15, "-1") + Point("d", 80, 100, 13) +
                          Point("L.1", 0, 0, 0) + Point("L.2", 5, 0, 1) + Point("M.1", 7, 0, 0));
  }

  std::string Names(UsePointsAs use, int line) const {
    const GeoFileLinPrfProxy proxy(Widen(path_), use, line);
    const Model::ILineFileProxy& elements = proxy;
    std::string all;
    for (int i = 0; i < elements.GetElementCount(); ++i) all += Narrow(elements.GetAt(i).Name);
    return all;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("points.pxy");
};

TEST_F(GeoFileLinPrfProxyTest, PointsOfChoice) {
  EXPECT_EQ(Names(UsePointsAs::PointsAndLines, 1), "abcd121");
  EXPECT_EQ(Names(UsePointsAs::Points, 1), "abcd");
  EXPECT_EQ(Names(UsePointsAs::Line, 0), "12");
  EXPECT_EQ(Names(UsePointsAs::Line, 1), "1");
  EXPECT_EQ(Names(UsePointsAs::Line, 2), "");
  EXPECT_EQ(Names(UsePointsAs::Line, -1), "");
}

TEST_F(GeoFileLinPrfProxyTest, StraightsArcsAndGrades) {
  auto proxy = std::make_unique<GeoFileLinPrfProxy>(Widen(path_), UsePointsAs::Points, 0);
  const std::shared_ptr<Model::IProfileFileProxy> profile = proxy->GetProfileFileProxy();
  const Model::ILineFileProxy& line = *proxy;
  // From (30, 40) a quarter of a circle to the right round (80, 40).
  const double arc = 25.0 * kPi;
  const struct {
    double section, bearing, radius, length, z, slope;
  } cases[] = {{0.0, std::atan2(4.0, 3.0), 0.0, 50.0, 10.0, 0.1},
               {50.0, kHalfPi, 50.0, arc, 15.0, 0.0},
               {50.0 + arc, kHalfPi, 0.0, 10.0, 15.0, -0.2},
               {60.0 + arc, 0.0, 0.0, 0.0, 13.0, 0.0}};
  for (int i = 0; const auto& c : cases) {
    const auto e = line.GetAt(i);
    EXPECT_NEAR(e.Section, c.section, 1e-12) << i;
    EXPECT_NEAR(e.Bearing, c.bearing, 1e-14) << i;
    EXPECT_EQ(Vector(e.Radius, e.EndRadius), Vector(c.radius, c.radius)) << i;
    EXPECT_NEAR(e.Length, c.length, 1e-12) << i;
    ++i;
  }
  proxy.reset();
  for (int i = 0; const auto& c : cases) {
    const auto p = profile->GetAt(i++);
    EXPECT_NEAR(p.Section, c.section, 1e-12) << i;
    EXPECT_EQ(p.Z, c.z) << i;
    EXPECT_NEAR(p.Slope, c.slope, 1e-14) << i;
    EXPECT_NEAR(p.Length, c.length, 1e-12) << i;
  }
  EXPECT_EQ(profile->GetAt(4).Name + profile->GetAt(-1).Name, L"");
}

TEST_F(GeoFileLinPrfProxyTest, OpenFileFailed) {
  try {
    GeoFileLinPrfProxy(L"no/such.pxy", UsePointsAs::Points, 0);
    FAIL();
  } catch (const std::runtime_error& fault) {
    EXPECT_STREQ(fault.what(), "Open file failed");
  }
}

}  // namespace
