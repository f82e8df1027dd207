// What a plot of a model shows, and its files.

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "tests/tools/korvel/corrections/ModelFiles.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/corrections/FieldScene.h"

namespace {

korvel::FieldScene SceneOf(const std::string& path) {
  return korvel::ReadFieldScene(path, korvel::FindAngleUnit("deg"), [](double) {});
}

}  // namespace

TEST(FieldScene, NetworkWithItsTriangles) {
  const korvel::FieldScene scene = SceneOf(kNetwork);
  double length = 0.0;  // 4 edges on the rim, 4 within, each once
  for (const auto& [a, b] : scene.edges) length += a.GetDistance(b);
  EXPECT_NEAR(length, 4000 + 2 * std::hypot(400, 500) + 2 * std::hypot(600, 500), 1e-6);
  ASSERT_EQ(scene.arrows.size(), 5U);
  EXPECT_EQ(scene.arrows[4].place, Vector(480500.0, 6580400.0));
  EXPECT_EQ(scene.arrows[4].correction, Vector(-0.3F, 0.2F));
}

// One degree of latitude is 111.3 km on the plot; 6" of it are 190 m.
TEST(FieldScene, ArrowsOfALargeGridAreThinnedOut) {
  const korvel::FieldScene scene = SceneOf(RealGrid("germany_shift.ccg"));
  EXPECT_GT(scene.arrows.size(), 100U);
  EXPECT_LT(scene.arrows.size(), 700U);
  EXPECT_NEAR(scene.corners[1].y - scene.corners[0].y, 8.3 * 111319.5, 10.0);
  EXPECT_GT(scene.LongestCorrection(), 190.0);
  EXPECT_LT(scene.LongestCorrection(), 260.0);
  EXPECT_FALSE(scene.colours);
}

TEST(FieldPlot, FilesOfEachKind) {
  const TempFolder folder;
  WriteBytes(folder.Path("r.csv"), "0,0,.1,.2,1\n0,9,.1,0,2\n9,0,0,.1,3\n");
  const std::string grid = folder.Path("g.ccg");
  RunWell("grid build " + grid + ' ' + folder.Path("r.csv") + " --type xyz --spacing 9");
  const korvel::FieldScene scene = SceneOf(grid);
  ASSERT_TRUE(scene.colours);
  EXPECT_EQ(scene.colours->values[0], 3.0F);
  EXPECT_TRUE(std::isnan(scene.colours->values[1]));
  EXPECT_EQ(scene.colours->values[3], 2.0F);
  ExpectPlots("grid plot " + grid + " -o");
  ExpectFault("grid plot " + grid + " -o p.gif", "p.gif");
}
