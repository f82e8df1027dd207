// What a plot of a model shows, and its files.

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
  const TempFolder folder;
  WriteNetwork(folder.Path("n.tri"));
  const korvel::FieldScene scene = SceneOf(folder.Path("n.tri"));
  EXPECT_EQ(scene.edges.size(), 16U);  // 8 on the rim, 8 within, each once
  ASSERT_EQ(scene.arrows.size(), 9U);
  for (const auto& arrow : scene.arrows) {
    const Vector expected = EvenCorrection(arrow.place.y, arrow.place.x);
    EXPECT_NEAR(arrow.correction.x, expected.y, 1e-7);
    EXPECT_NEAR(arrow.correction.y, expected.x, 1e-7);
  }
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
  ASSERT_EQ(RunKorvel("grid build " + folder.Path("g.ccg") + ' ' + folder.Path("r.csv") +
                      " --type xyz --spacing 9")
                .status,
            0);
  const korvel::FieldScene scene = SceneOf(folder.Path("g.ccg"));
  ASSERT_TRUE(scene.colours);
  EXPECT_EQ(scene.colours->values[0], 3.0F);
  EXPECT_TRUE(std::isnan(scene.colours->values[1]));
  EXPECT_EQ(scene.colours->values[3], 2.0F);
  for (const auto& [name, start] :
       {std::pair{"p.svg", "<?xml"}, {"p.png", "\x89PNG"}, {"p.pdf", "%PDF"}}) {
    const ProgramRun run =
        RunKorvel("grid plot " + folder.Path("g.ccg") + " -o " + folder.Path(name));
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_TRUE(ReadBytes(folder.Path(name)).starts_with(start)) << name;
    EXPECT_GT(ReadBytes(folder.Path(name)).size(), 5000U) << name;
  }
  EXPECT_EQ(RunKorvel("grid plot " + folder.Path("g.ccg") + " -o p.gif").status, 2);
}
