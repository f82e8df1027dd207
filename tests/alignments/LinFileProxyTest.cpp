#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/LinFileAssociatedFiles.h"
#include "korvelfile/alignments/LinFileProxy.h"
#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/alignments/PrfFileProxy.h"
#include "korvelfile/alignments/SafeLinFile.h"
#include "korvelfile/alignments/SkvFile.h"
#include "korvelfile/alignments/SkvFileAssociatedFiles.h"
#include "korvelfile/alignments/SkvFileProxy.h"
#include "korvelfile/outside/base/Angles.h"

namespace {

const std::string kLin = KORVELFILE_GOLDEN "/lin/road.lin";

std::string Fault(const std::function<void()>& call) {
  try {
    call();
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return {};
}

TEST(LinFileProxyTest, GivesTheFiguresOfAllThreeFiles) {
  File::SafeLinFile lin(kLin);
  const File::LinFileProxy linProxy(lin.GetLinFile());
  const Model::ILineFileProxy& line = linProxy;
  ASSERT_EQ(line.GetElementCount(), 7);
  const auto e = line.GetAt(3);
  EXPECT_EQ(e.Name, L"K2");
  EXPECT_EQ(e.Start, Vector(673997.47764, 6580123.91397));
  EXPECT_NEAR(e.Bearing, (100.0 - 26.923947) * kPi / 200.0, 1e-15);
  EXPECT_EQ(Vector(e.Radius, e.EndRadius), Vector(100.0, -150.0));
  EXPECT_EQ(Vector(e.Parameter, e.Length), Vector(80.0, 106.66667));
  EXPECT_EQ(e.Section, 1126.0);

  PrfFile prf;
  ASSERT_EQ(prf.Open(KORVELFILE_GOLDEN "/prf/road.prf"), 0);
  const File::PrfFileProxy prfProxy(prf);
  const Model::IProfileFileProxy& profile = prfProxy;
  ASSERT_EQ(profile.GetElementCount(), 6);
  const auto p = profile.GetAt(3);
  EXPECT_EQ(p.Name, L"CREST-123456");
  EXPECT_EQ(Vector(p.Section, p.Z), Vector(1185.5, 57.1376));
  EXPECT_EQ(Vector(p.Slope, p.Radius), Vector(0.060104, -1500.0));
  EXPECT_EQ(Vector(p.OffsL, p.OffsR), Vector(3.5, 4.25));
  EXPECT_EQ(p.Length, 150.0);

  SkvFile skv;
  ASSERT_EQ(skv.Open(KORVELFILE_GOLDEN "/skv/road.skv"), 0);
  const File::SkvFileProxy skvProxy(skv);
  const Model::ICamberFileProxy& camber = skvProxy;
  ASSERT_EQ(camber.GetElementCount(), 5);
  const auto c = camber.GetAt(2);
  EXPECT_EQ(c.Name, L"CURVE-LEFT-1");
  EXPECT_EQ(Vector(c.Slope1, c.Slope2), Vector(-0.04, 0.0425));
  EXPECT_EQ(c.Section, 1086.0);

  for (const int index : {-1, 7}) {
    EXPECT_EQ(Fault([&] { line.GetAt(index); }),
              "File::LinFileProxy::GetAt: Error! Index out of range.");
    EXPECT_EQ(Fault([&] { profile.GetAt(index); }),
              "File::PrfFileProxy::GetAt: Error! Index out of range.");
    EXPECT_EQ(camber.GetAt(index).Name, L"");
  }
}

TEST(LinFileProxyTest, SafeFilesAreHandlesOfOneFile) {
  File::SafeLinFile lin(std::wstring(kLin.begin(), kLin.end()));
  const File::SafeLinFile copy = lin;
  lin.GetLinFile().DeleteElement(0);
  EXPECT_EQ(copy.GetLinFile().GetTotalElements(), 6U);
  EXPECT_EQ(Fault([] { File::SafeLinFile(std::string("no/such.lin")); }),
            "Could not load no/such.lin");
}

TEST(LinFileProxyTest, FilesOfARoadBelongTogether) {
  using namespace File::Association;
  const struct {
    std::string path, first, second;
  } cases[] = {{"a/b.c.lin", "a/b.c.prf", "a/b.c.skv"}, {"a.d/b", "a.d/b.prf", "a.d/b.skv"}};
  for (const auto& c : cases) {
    const auto files = LinFileAssociatedFiles().GetAssociatedFiles(c.path, true);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].Path(), c.first);
    EXPECT_EQ(files[1].Path(), c.second);
    EXPECT_EQ(static_cast<int>(files[1].Type()), 0);
  }
  const auto files = SkvFileAssociatedFiles().GetAssociatedFiles("b.skv", false);
  EXPECT_EQ(files.at(0).Path() + files.at(1).Path(), "b.prfb.lin");
}

}  // namespace
