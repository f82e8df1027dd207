// What the forms of a coordinate file share; each form has a file of tests of its own.

#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribList.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kFailure = -9;

std::string Golden(const std::string& format) {
  return ReadBytes(KORVELFILE_GOLDEN "/" + format + "/job." + format);
}

class PxyCoordinateFileTest : public testing::Test {
 protected:
  PxyCoordinateFileTest() { SetGoldenIdentity(); }

  std::string Put(const std::string& name, const std::string& bytes) {
    WriteBytes(folder_.Path(name), bytes);
    return folder_.Path(name);
  }

  TempFolder folder_;
  CaughtMessages messages_;
};

TEST_F(PxyCoordinateFileTest, Paths) {
  const struct {
    const char *path, *shortName;
  } kCases[] = {{"/a/b/job.geo", "job.geo"},
                {"job.geo", "job.geo"},
                {"a\\b\\job.geo", "a\\b\\job.geo"},
                {"a/", ""}};
  PxyCoordinateFile file(false);
  for (const auto& c : kCases) {
    file.ChooseFile(c.path);
    EXPECT_STREQ(file.GetPxyFile(), c.path);
    EXPECT_STREQ(file.GetFileName(), c.shortName);
  }
  file.ChooseFile(nullptr);
  EXPECT_STREQ(file.GetPxyFile(), "nofile.pxy");
  EXPECT_STREQ(file.GetFileName(), "nofile.pxy");
  const std::string longPath = folder_.Path("") + std::string(200, '/') + "job.pxy";
  file.ChooseFile(longPath.c_str());
  EXPECT_EQ(file.GetPxyFile(), longPath);
  EXPECT_EQ(file.InitCollector(), 0);
  EXPECT_TRUE(folder_.Names().contains("job.pxy"));
}

TEST_F(PxyCoordinateFileTest, TheExtensionRulesTheForm) {
  const std::string geo = Golden("geo"), pxy = Golden("pxy");
  const struct {
    const char* name;
    bool isReadOnly;
    const std::string& bytes;
    int result, proxyType;
  } kCases[] = {{"a.geo", false, geo, 0, 0},        {"a.GEO", true, geo, 0, 20},
                {"a.llc", false, geo, 0, 11},       {"a.Llc", true, geo, 0, 11},
                {"a.pxy", false, pxy, 0, 0},        {"a.Pxy", true, pxy, 0, 20},
                {"a.tun", false, pxy, 0, 0},        {"a.TUN", true, pxy, 0, 20},
                {"a.geo", false, pxy, kFailure, 0}, {"a.geo", true, pxy, kFailure, 0},
                {"a.txt", false, geo, kFailure, 0}, {"a.geo.bak", false, geo, kFailure, 0},
                {"nodot", false, geo, kFailure, 0}};
  for (const auto& c : kCases) {
    PxyCoordinateFile file(c.isReadOnly);
    file.ChooseFile(Put(c.name, c.bytes).c_str());
    EXPECT_EQ(file.GetProxyType(), 0);
    EXPECT_EQ(file.UseCollector(), c.result) << c.name;
    EXPECT_EQ(file.GetProxyType(), c.proxyType) << c.name;
    EXPECT_EQ(file.GetDataHolder() != nullptr, c.proxyType == 20) << c.name;
    EXPECT_EQ(file.IsForReadOnly(), c.isReadOnly);
    EXPECT_EQ(file.GetGraphicsObject(), &file);
  }
}

TEST_F(PxyCoordinateFileTest, UnknownFormsAreNeitherReadNorWritten) {
  PxyCoordinateFile file(false);
  file.InitAndUseCollectorWithoutFuckingDisk();
  for (const char* name : {"", "nodot", "a.txt"}) {
    file.ChooseFile(name);
    EXPECT_EQ(file.AutoSave(), kFailure) << name;
  }
  EXPECT_THAT(messages_.Take(), IsEmpty());
  EXPECT_THAT(folder_.Names(), IsEmpty());
  file.UnUseCollector();

  file.InsertItem(new LineDataItem, -1);
  file.ChooseFile("nodot");
  EXPECT_EQ(file.UseCollector(), kFailure);
  EXPECT_EQ(file.size(), 1U) << "without an extension the list is left as it was";
  file.ChooseFile("a.txt");
  EXPECT_EQ(file.UseCollector(), kFailure);
  EXPECT_EQ(file.size(), 0U);
}

TEST_F(PxyCoordinateFileTest, MissingAndUnwritableFiles) {
  const struct {
    const char *name, *writeMessage;
  } kCases[] = {{"none/a.geo", "can't create geo-file!"},
                {"none/a.llc", "can't create geo-file!"},
                {"none/a.pxy", "can't open pxy-file!"},
                {"none/a.tun", "can't open pxy-file!"}};
  for (const auto& c : kCases) {
    const std::string path = folder_.Path(c.name);
    for (const bool isReadOnly : {false, true}) {
      PxyCoordinateFile file(isReadOnly);
      file.ChooseFile(path.c_str());
      EXPECT_EQ(file.UseCollector(), kFailure) << c.name;
      EXPECT_THAT(messages_.Take(), ElementsAre("can't open pxy-file!", path));
      EXPECT_EQ(file.GetDataHolder(), nullptr);
      EXPECT_EQ(file.GetFaultLine(), 0);
      file.InitAndUseCollectorWithoutFuckingDisk();
      EXPECT_EQ(file.AutoSave(), kFailure) << c.name;
      EXPECT_THAT(messages_.Take(), ElementsAre(c.writeMessage, path));
    }
  }
}

TEST_F(PxyCoordinateFileTest, DefaultItems) {
  PxyCoordinateFile file(false);
  ASSERT_EQ(file.InitAndUseCollectorWithoutFuckingDisk(), 0);
  ASSERT_EQ(file.size(), 2U);
  EXPECT_EQ(file.GetFileHeader(), &file[0]);
  EXPECT_EQ(file.GetFileHeader()->GetFileType(), "Coordinate Document");
  EXPECT_EQ(file.GetFileHeader()->GetVersion(), 0x00020001);
  std::string description = "none";
  EXPECT_TRUE(file.GetFileHeader()->GetInfo("Description", description));
  EXPECT_EQ(description, "");
  EXPECT_TRUE(dynamic_cast<GeoAttribList*>(&file[1]));
}

TEST_F(PxyCoordinateFileTest, LinesAndLinks) {
  PxyCoordinateFile file(false);
  file.InitAndUseCollectorWithoutFuckingDisk();
  LineDataItem* line = file.CreateLine("L", 4711);
  EXPECT_EQ(&file.back(), line);
  EXPECT_EQ(line->GetName(), "L");
  EXPECT_FALSE(file.IsModified());
  line->AddPoint("1", Vector3d(), "", "", "");
  auto& inLine = dynamic_cast<PointDataItem&>(line->front());
  auto* point = new PointDataItem;
  file.InsertPoint(point, nullptr);
  int thing = 0;
  point->SetLink(&thing);
  line->SetLink(&thing);
  inLine.SetLink(&thing);
  file.RemoveLinks();
  EXPECT_EQ(point->GetLink(), nullptr);
  EXPECT_EQ(line->GetLink(), nullptr);
  EXPECT_EQ(inLine.GetLink(), nullptr);
}

// Its list lacks the points.
TEST_F(PxyCoordinateFileTest, ReadOnlyFilesAreNotWritten) {
  for (const std::string format : {"geo", "pxy"}) {
    const std::string bytes = Golden(format);
    const std::string path = Put("job." + format, bytes);
    PxyCoordinateFile file(true);
    file.ChooseFile(path.c_str());
    ASSERT_EQ(file.UseCollector(), 0);
    file.FlagDirty();
    messages_.Take();
    EXPECT_EQ(file.SaveCollector(), kFailure);
    EXPECT_THAT(messages_.Take(),
                ElementsAre("writing changes to file", "File is open for reading only: ", path));
    EXPECT_EQ(ReadBytes(path), bytes);
    const auto store = file.GetDataHolder();
    file.UnUseCollector();
    CooPtData point;
    EXPECT_TRUE(store->GetPoint(point, KeeperFreePoints, KeeperFirst, 0)) << "outlives its use";
    EXPECT_EQ(file.InitCollector(), 0) << "a new file may be made";
    EXPECT_NE(ReadBytes(path), bytes);
  }
}

TEST_F(PxyCoordinateFileTest, OneObjectReadsOneFileAfterAnother) {
  const std::string llc = Put("a.llc", Golden("geo"));
  const std::string pxy = Put("a.pxy", Golden("pxy"));
  PxyCoordinateFile file(true);
  const struct {
    const std::string& path;
    int proxyType;
  } kSteps[] = {{llc, 11}, {pxy, 20}, {llc, 11}};
  for (const auto& step : kSteps) {
    file.ChooseFile(step.path.c_str());
    ASSERT_EQ(file.UseCollector(), 0);
    EXPECT_EQ(file.GetProxyType(), step.proxyType);
    file.UnUseCollector();
  }
  EXPECT_EQ(file.GetDataHolder(), nullptr);
}

TEST_F(PxyCoordinateFileTest, ThreadsReadTheSameNamesAtOnce) {
  const std::string geo = KORVELFILE_TEST_DATA "/points/m3_breaklines.geo";
  const std::string pxy = KORVELFILE_TEST_DATA "/points/m3_breaklines.pxy";
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      PxyCoordinateFile file(false);
      file.ChooseFile((t % 2 == 0 ? geo : pxy).c_str());
      for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(file.UseCollector(), 0);
        std::size_t points = 0;
        for (const DataItemInterface& item : file) {
          const auto* line = dynamic_cast<const LineDataItem*>(&item);
          if (!line) continue;
          points += line->size();
          EXPECT_EQ(line->front().GetName(), "1");
        }
        EXPECT_EQ(points, 5871U);
        file.UnUseCollector();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
