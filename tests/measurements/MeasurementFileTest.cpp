#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tests/support/ItemFileTest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct MeasurementFileTest : ItemFileTest<MeasurementFile> {
  MeasurementFileTest() : ItemFileTest("job.plm") {}

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/plm/job.plm");
};

TEST_F(MeasurementFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ExpectGolden(golden_, "plm.md");
  file_.FlagDirty();
  EXPECT_EQ(Written(), golden_);
  EXPECT_FALSE(file_.IsModified());
  const auto& station = dynamic_cast<StationDataItem&>(file_[1]);
  const auto& first = dynamic_cast<const RecordDataItem&>(station[0]);
  EXPECT_EQ(first.DistanceOffset, -0.0344);
  EXPECT_TRUE(first.IsUsingBacksight(RecordDataItem::AnyBacksightUsage));
  const auto& line = dynamic_cast<const InmlineDataItem&>(station[1]);
  const auto& inner = dynamic_cast<const InmlineDataItem&>(line[2]);
  EXPECT_EQ(dynamic_cast<const RecordDataItem&>(inner[0]).Remark, "cover \"old\"");
}

TEST_F(MeasurementFileTest, RealJobsReadAndWriteByteForByte) {
  _GHAL::SetIdentity({L"converter", L"1.0", L"", L"", L""});
  for (const std::string job : {"niemeier_z108", "crane_8001", "fieldbook_2setups"}) {
    const std::string bytes = ReadBytes(KORVELFILE_TEST_DATA "/jobs/" + job + "/job.plm");
    ASSERT_EQ(Read(bytes), 0) << job;
    EXPECT_EQ(Written(), bytes) << job;
  }
}

std::string FileOf(const std::string& version, const std::string& station,
                   const std::string& record = "", const std::string& precision = "") {
  return "FileHeader \"KVT Object Text v" + version + "\",\"x\"\nbegin\nend\nInmStnList\nbegin\n" +
         "InmStation " + station + "\nbegin\nInmRecordList\nbegin\nInmRecord " + record +
         "\nend\nend\nend\nInmPrecision " + precision + "\nAttributeList\n";
}

TEST_F(MeasurementFileTest, OldVersionsComeBackAtTheNewOne) {
  const std::string station = "\"S\",1,2,3,4,5,6,7,200,9,10,11,12,13,14,15,16,17,\"18\",";
  const std::string rest = ",\"20\",21,-22,-128,\"24\"";
  const std::string earth = ",6389000,1.400000000000000e-01,1";
  const struct {
    const char *version, *date, *stationEnd, *fifth;
    std::string addedToStation, fifthWritten;
  } kCases[] = {
      {"1.01", "\"98-05-12\"", "", "", ",0" + earth + ",0,0,0", "0"},
      {"1.02", "19980512", "", "", ",0" + earth + ",0,0,0", "0"},
      {"1.03", "19980512", ",25", "", earth + ",0,0,0", "0"},
      {"1.05", "19980512", ",25", ",5", earth + ",0,0,0", "5"},
      {"1.06", "19980512", ",25,26,27,28", ",5", ",0,0,0", "5"},
      {"1.07", "19980512", ",25,26,27,28,29", ",5", ",0,0", "5"},
      {"1.08", "19980512", ",25,26,27,28,29,30,31", ",5", "", "5"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.version);
    const std::string record = "-7,\"A\",\"P\",\"S\",\"R\",1,2,3,4";
    const std::string precision = std::string("1,2,3,4") + c.fifth;
    ASSERT_EQ(Read(FileOf(c.version, station + c.date + rest + c.stationEnd, record + c.fifth,
                          precision)),
              0);
    const std::string written = Written();
    EXPECT_THAT(written,
                HasSubstr(station + "19980512" + rest + c.stationEnd + c.addedToStation + "\r\n"));
    EXPECT_THAT(written, HasSubstr(record + "," + c.fifthWritten + "\r\n"));
    EXPECT_THAT(written, HasSubstr("InmPrecision " + precision + (*c.fifth ? "" : ",")));
    EXPECT_THAT(written, HasSubstr("v1.08\""));
  }
}

TEST_F(MeasurementFileTest, FaultsAreFoundAtTheirLines) {
  const std::string head = "FileHeader \"KVT Object Text v1.08\",\"x\"\nbegin\nend\n";
  const std::string end = "InmPrecision\nAttributeList\n";
  const std::string list = head + "InmStnList\nbegin\nInmStation\nbegin\n";
  for (const auto& [bytes, line] :
       {std::pair{list + "end\nInmStation\nend\n" + end + "anything\n", 0},
        {FileOf("1.09", ""), 4},
        {"FileHeader \"KVT Object Text v1.08\"\n" + end, 2},
        {head + end, 4},
        {list + "InmRecordList\nbegin\nPoint\nend\n", 10},
        {list + "InmRecord\n", 8}}) {
    EXPECT_EQ(Read(bytes), line == 0 ? 0 : kFailure) << bytes;
    EXPECT_EQ(file_.GetFaultLine(), line) << bytes;
  }
}

TEST_F(MeasurementFileTest, CutOffAndMangledFilesAreReadOrRefused) {
  const std::string lastRow = "\r\nAttributeList";
  ExpectReadOrRefused(golden_, golden_.rfind(lastRow) + lastRow.size());
  messages_.Take();
  ASSERT_EQ(Read(golden_.substr(0, golden_.find("\tAttribute \"Crew"))), 0);
  EXPECT_THAT(messages_.Take(), testing::Contains(HasSubstr("cut off")));
}

TEST_F(MeasurementFileTest, NestingHasALimitInBothDirections) {
  constexpr int kLimit = 256;
  file_.ChooseFile(path_.c_str());
  ASSERT_EQ(file_.InitAndUseCollectorWithoutFuckingDisk(), 0);
  DataItemListObject* list = new StationDataItem;
  file_.InsertItem(static_cast<StationDataItem*>(list), -1);
  const auto deepen = [&] {
    auto* line = new InmlineDataItem;
    list->InsertItem(line, -1);
    list = line;
  };
  for (int i = 0; i < kLimit; ++i) deepen();
  const std::string deepest = Written();
  deepen();
  messages_.Take();
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("Lines are nested too deep: ", path_));
  EXPECT_EQ(ReadBytes(path_), deepest) << "the old file stays";
  ASSERT_EQ(Read(deepest), 0);
  EXPECT_EQ(Written(), deepest);

  std::string bomb = deepest.substr(0, deepest.find("\t\t\t"));
  for (int i = 0; i < 200000; ++i) bomb += "InmLine\nbegin\nInmRecordList\nbegin\n";
  EXPECT_EQ(Read(bomb), kFailure);
}

TEST_F(MeasurementFileTest, FailuresAndWhatTheyLeave) {
  const struct {
    const char* message;
    bool isWritten;
    void (*spoil)(MeasurementFile&);
  } kCases[] = {
      {"File Header missing: ", false,
       [](MeasurementFile& file) { file.DeleteItem(FindFirst<FileHeader>(file)); }},
      {"can't write precision to plm-file!", false,
       [](MeasurementFile& file) { file.DeleteItem(file.GetPrecision()); }},
      {"Failed to write Attributelist: ", true,
       [](MeasurementFile& file) { file.DeleteItem(FindFirst<GeoAttribList>(file)); }},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read(golden_), 0);
    FindFirst<StationDataItem>(file_)->InstrumentHeight = 2.5;
    c.spoil(file_);
    messages_.Take();
    EXPECT_EQ(file_.AutoSave(), kFailure) << c.message;
    EXPECT_THAT(messages_.Take(), ElementsAre(c.message, path_));
    const std::string left = ReadBytes(path_);
    EXPECT_TRUE(c.isWritten ? left.find("\"1001\",2.5,") != left.npos : left == golden_) << left;
  }
}

}  // namespace
