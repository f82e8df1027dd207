#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/NumberText.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

constexpr int kFailure = -9;
constexpr const char* kInvalid = "Invalid Plm-file format";

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/plm/job.plm");
  return bytes;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

class MeasurementFileTest : public testing::Test {
 protected:
  MeasurementFileTest() { SetGoldenIdentity(); }

  int Read(const std::string& bytes) {
    WriteBytes(path_, bytes);
    file_.ChooseFile(path_.c_str());
    return file_.UseCollector();
  }

  // What a file that was just read becomes when it is written.
  std::string Written() {
    EXPECT_EQ(file_.AutoSave(), 0);
    return ReadBytes(path_);
  }

  void StartInMemory() {
    file_.ChooseFile(path_.c_str());
    ASSERT_EQ(file_.InitAndUseCollectorWithoutFuckingDisk(), 0);
  }

  // Puts `count` lines within each other into a new station.
  void AddNestedLines(int count) {
    auto* station = new StationDataItem;
    file_.InsertItem(station, -1);
    DataItemListObject* list = station;
    for (int i = 0; i < count; ++i) {
      auto* line = new InmlineDataItem;
      list->InsertItem(line, -1);
      list = line;
    }
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.plm");
  CaughtMessages messages_;
  MeasurementFile file_;
};

TEST_F(MeasurementFileTest, GoldenFileReadsAndWritesByteForByte) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_THAT(messages_.Take(),
              ElementsAre("Read collector file begin...", "Read collector file end."));
  ASSERT_EQ(file_.GetNumberOfItems(), 5);
  const auto& station = dynamic_cast<StationDataItem&>(file_[1]);
  EXPECT_EQ(station.GetName(), "1001");
  EXPECT_EQ(station.InstrumentHeight, 1.62);
  EXPECT_EQ(station.GetDateText(), "2019-04-23  15:30:05");
  EXPECT_EQ(station.InstrumentA, 79.2);
  const auto& first = dynamic_cast<const RecordDataItem&>(station[0]);
  EXPECT_EQ(first.Type, PlmTypes::RecordFreeBacksight);
  EXPECT_EQ(first.DistanceOffset, -0.0344);
  EXPECT_TRUE(first.IsUsingBacksight(RecordDataItem::AnyBacksightUsage));
  const auto& line = dynamic_cast<const InmlineDataItem&>(station[1]);
  EXPECT_EQ(line.GetCode(), "KERB");
  const auto& inner = dynamic_cast<const InmlineDataItem&>(line[2]);
  EXPECT_TRUE(inner.IsPolygon());
  EXPECT_EQ(dynamic_cast<const RecordDataItem&>(inner[0]).Remark, "cover \"old\"");
  EXPECT_EQ(file_.GetPrecision()->DistanceError, 0.001);
  EXPECT_EQ(GeoAttrib::GetAttribute(&file_, "Crew")->Value, "2");

  file_.FlagDirty();
  EXPECT_EQ(Written(), Golden());
  EXPECT_THAT(messages_.Take(), ElementsAre("Wrote PLM file."));
  EXPECT_FALSE(file_.IsModified());
}

TEST_F(MeasurementFileTest, PageOfTheFormatShowsTheGoldenFile) {
  const std::string page = ReadBytes(KORVELFILE_SOURCE "/docs/formats/plm.md");
  std::string golden = Golden();
  std::erase(golden, '\r');
  EXPECT_THAT(page, HasSubstr("```\n" + golden + "```\n"));
}

TEST_F(MeasurementFileTest, RealJobsReadAndWriteByteForByte) {
  _GHAL::SetIdentity({L"converter", L"1.0", L"", L"", L""});
  constexpr struct {
    const char* name;
    int stations, records;
  } kJobs[] = {{"niemeier_z108", 1, 3}, {"crane_8001", 1, 34}, {"fieldbook_2setups", 2, 225}};
  for (const auto& job : kJobs) {
    const std::string bytes =
        ReadBytes(KORVELFILE_TEST_DATA "/jobs/" + std::string(job.name) + "/job.plm");
    ASSERT_EQ(Read(bytes), 0) << job.name;
    int stations = 0, records = 0;
    TypedItemCursor<StationDataItem> cursor(file_);
    for (StationDataItem* station = nullptr; cursor.Next(station) == 0; ++stations)
      records += station->GetRecordCount(PlmTypes::RecordAny);
    EXPECT_EQ(stations, job.stations) << job.name;
    EXPECT_EQ(records, job.records) << job.name;
    EXPECT_EQ(Written(), bytes) << job.name;
    file_.UnUseCollector();
  }
}

TEST_F(MeasurementFileTest, OldVersionsComeBackAtTheNewOne) {
  const struct {
    const char *version, *station, *record, *precision;  // rows of that version
    const char *newStation, *newRecord, *newPrecision;   // ends of the rows written back
  } kCases[] = {
      {"1.01", "\"S\",1,,,,,,,,,,,,,,,,,\"\",\"98-05-12\",\"\",1,2,3,\"\"",
       "4,\"A\",\"\",\"\",\"\",1,2,3,4", "1,2,3,4",
       "19980512,\"\",1,2,3,\"\",0,6389000,1.400000000000000e-01,1,0,0,0", ",1,2,3,4,0",
       "1,2,3,4,"},
      {"1.05", "\"S\",1,,,,,,,,,,,,,,,,,\"\",19980512.5,\"\",1,2,3,\"\",9",
       "4,\"A\",\"\",\"\",\"\",1,2,3,4,5", "1,2,3,4,5",
       "19980512.5,\"\",1,2,3,\"\",9,6389000,1.400000000000000e-01,1,0,0,0", ",1,2,3,4,5",
       "1,2,3,4,5"},
  };
  for (const auto& c : kCases) {
    std::string bytes = "FileHeader \"KVT Object Text v" + std::string(c.version) +
                        "\",\"Polar measurements\"\nbegin\nend\nInmStnList\nbegin\nInmStation " +
                        c.station + "\nbegin\nInmRecordList\nbegin\nInmRecord " + c.record +
                        "\nend\nend\nend\nInmPrecision " + c.precision + "\nAttributeList\n";
    ASSERT_EQ(Read(bytes), 0) << c.version;
    const std::string written = Written();
    EXPECT_THAT(written, HasSubstr(std::string(c.newStation) + "\r\n")) << c.version;
    EXPECT_THAT(written, HasSubstr(std::string(c.newRecord) + "\r\n")) << c.version;
    EXPECT_THAT(written, HasSubstr("InmPrecision " + std::string(c.newPrecision) + "\r\n"));
    EXPECT_THAT(written, HasSubstr("v1.08\"")) << c.version;
    file_.UnUseCollector();
  }
}

TEST_F(MeasurementFileTest, SmallestFiles) {
  const std::string head = "FileHeader \"KVT Object Text v1.08\",\"x\"\nbegin\n";
  const std::string end = "InmPrecision\nAttributeList\n";
  const struct {
    const char* what;
    std::string bytes;
    int result, line;
  } kCases[] = {
      {"no stations", head + "end\nInmStnList\n" + end, 0, 0},
      {"station without block",
       head + "end\nInmStnList\nbegin\nInmStation\nInmStation\nend\n" + end, 0, 0},
      {"empty block", head + "end\nInmStnList\nbegin\nInmStation\nbegin\nend\nend\n" + end, 0, 0},
      {"attributes in a line",
       head +
           "end\nInmStnList\nbegin\nInmStation\nbegin\nInmRecordList\nbegin\nInmLine\nbegin\n"
           "InmRecordList\nAttributeList\nend\nend\nend\nend\n" +
           end,
       0, 0},
      {"text behind the end", head + "end\nInmStnList\n" + end + "anything\n", 0, 0},
      {"no version", "FileHeader \"x\",\"x\"\nbegin\nend\nInmStnList\n" + end, 0, 0},
      {"empty", "", kFailure, 0},
      {"newer", Replaced(head, "1.08", "1.09") + "end\nInmStnList\n" + end, kFailure, 4},
      {"header without block", "FileHeader \"KVT Object Text v1.08\"\nInmStnList\n" + end, kFailure,
       2},
      {"no station list", head + "end\n" + end, kFailure, 4},
      {"no precision", head + "end\nInmStnList\n", kFailure, 4},
      {"no attributes", head + "end\nInmStnList\nInmPrecision\n", kFailure, 5},
      {"foreign row in a record list",
       head + "end\nInmStnList\nbegin\nInmStation\nbegin\nInmRecordList\nbegin\nPoint\nend\n",
       kFailure, 10},
      {"record beside the list", head + "end\nInmStnList\nbegin\nInmStation\nbegin\nInmRecord\n",
       kFailure, 8},
      {"record with a foreign block",
       head + "end\nInmStnList\nbegin\nInmStation\nbegin\nInmRecordList\nbegin\nInmRecord\nbegin\n"
              "InmRecord\n",
       kFailure, 12},
  };
  for (const auto& c : kCases) {
    messages_.Take();
    EXPECT_EQ(Read(c.bytes), c.result) << c.what;
    EXPECT_EQ(file_.GetFaultLine(), c.line) << c.what;
    EXPECT_EQ(messages_.Take().back(), c.result == 0 ? "Read collector file end." : kInvalid)
        << c.what;
    file_.UnUseCollector();
  }
}

TEST_F(MeasurementFileTest, CutOffFilesAreRefusedUnlessAllStationsAreThere) {
  const std::string lastRow = "AttributeList";
  const std::size_t lastRowEnd = Golden().rfind("\r\n" + lastRow) + 2 + lastRow.size();
  for (std::size_t size = 0; size < Golden().size(); ++size) {
    const int result = Read(Golden().substr(0, size));
    ASSERT_TRUE(result == kFailure || (result == 0 && size >= lastRowEnd)) << size;
    file_.UnUseCollector();
  }
  EXPECT_EQ(Read(Golden().substr(0, lastRowEnd)), 0);
}

TEST_F(MeasurementFileTest, CutOffWithinTheLastBlockIsTold) {
  const std::size_t crew = Golden().find("\tAttribute \"Crew");
  ASSERT_EQ(Read(Golden().substr(0, crew)), 0);
  EXPECT_THAT(messages_.Take(), Contains(HasSubstr("cut off")));
}

TEST_F(MeasurementFileTest, MangledFilesAreReadOrRefused) {
  std::mt19937 random(4711);
  for (int i = 0; i < 3000; ++i) {
    std::string bytes = Golden();
    for (int hits = 1 + static_cast<int>(random() % 4); hits > 0; --hits)
      bytes[random() % bytes.size()] = static_cast<char>(random() % 256);
    const int result = Read(bytes);
    ASSERT_TRUE(result == 0 || result == kFailure) << i;
    if (result != 0) continue;
    // What was read at all writes a file that reads as the same.
    const std::string once = Written();
    file_.UnUseCollector();
    ASSERT_EQ(Read(once), 0) << i;
    ASSERT_EQ(Written(), once) << i;
    file_.UnUseCollector();
  }
}

TEST_F(MeasurementFileTest, NestingHasALimitInBothDirections) {
  constexpr int kLimit = 256;
  StartInMemory();
  AddNestedLines(kLimit);
  const std::string deepest = Written();
  file_.UnUseCollector();
  ASSERT_EQ(Read(deepest), 0);
  EXPECT_EQ(Written(), deepest);
  AddNestedLines(kLimit + 1);
  messages_.Take();
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("Lines are nested too deep: ", path_));
  EXPECT_EQ(ReadBytes(path_), deepest) << "the old file stays";
  file_.UnUseCollector();

  std::string bomb =
      "FileHeader \"KVT Object Text v1.08\"\nbegin\nend\nInmStnList\nbegin\nInmStation\n";
  for (int i = 0; i < 200000; ++i) bomb += "begin\nInmRecordList\nbegin\nInmLine\n";
  EXPECT_EQ(Read(bomb), kFailure);
}

TEST_F(MeasurementFileTest, TheLastGoodCopyStays) {
  const struct {
    const char *what, *message;
    void (*spoil)(MeasurementFile&);
  } kCases[] = {
      {"header", "File Header missing: ",
       [](MeasurementFile& file) { file.DeleteItem(FindFirst<FileHeader>(file)); }},
      {"precision", "can't write precision to plm-file!",
       [](MeasurementFile& file) { file.DeleteItem(file.GetPrecision()); }},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(Read(Golden()), 0);
    c.spoil(file_);
    messages_.Take();
    EXPECT_EQ(file_.AutoSave(), kFailure) << c.what;
    EXPECT_THAT(messages_.Take(), ElementsAre(c.message, path_));
    EXPECT_EQ(ReadBytes(path_), Golden()) << c.what;
    file_.UnUseCollector();
  }
}

TEST_F(MeasurementFileTest, DataIsWrittenThoughTheAttributeListIsMissing) {
  ASSERT_EQ(Read(Golden()), 0);
  file_.DeleteItem(FindFirst<GeoAttribList>(file_));
  dynamic_cast<StationDataItem&>(file_[1]).InstrumentHeight = 2.5;
  messages_.Take();
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("Failed to write Attributelist: ", path_));
  file_.UnUseCollector();
  ASSERT_EQ(file_.UseCollector(), 0);
  EXPECT_EQ(dynamic_cast<StationDataItem&>(file_[1]).InstrumentHeight, 2.5);
}

TEST_F(MeasurementFileTest, ThePathRulesTheForm) {
  StartInMemory();
  const struct {
    const char* name;
    int result;
    const char* pattern;
  } kCases[] = {
      {"b.PLM", 0, "FileHeader \"KVT Object Text v1.08\",\"Polar measurements\"\r\n.*"},
      {"b.other", 0, "FileHeader .*"},
      {"b.INM", 0,
       "SRV_POINT INMFIL,V1.00,[0-9]+-[0-9][0-9]-[0-9][0-9], {50},\r\n"
       "Marlin backup file {22}, {43},\r\n"},
      {"b.bkp", 0, "SRV_POINT INMFIL,.*"},
      {"b", kFailure, nullptr},
  };
  for (const auto& c : kCases) {
    file_.ChooseFile(folder_.Path(c.name).c_str());
    EXPECT_EQ(file_.AutoSave(), c.result) << c.name;
    EXPECT_EQ(std::filesystem::exists(folder_.Path(c.name)), c.pattern != nullptr);
    if (c.pattern) {
      EXPECT_THAT(ReadBytes(folder_.Path(c.name)), MatchesRegex(c.pattern));
    }
  }
  file_.ChooseFile("");
  EXPECT_EQ(file_.AutoSave(), kFailure);
}

TEST_F(MeasurementFileTest, FilesThatCannotBeOpened) {
  const std::string missing = folder_.Path("none/job.plm");
  file_.ChooseFile(missing.c_str());
  EXPECT_EQ(file_.UseCollector(), kFailure);
  EXPECT_THAT(messages_.Take(),
              ElementsAre("Read collector file begin...", "can't open plm-file!", missing));
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("can't create plm-file!", missing));
  file_.ChooseFile(folder_.Path("none/job.inm").c_str());
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre());
}

TEST_F(MeasurementFileTest, Names) {
  constexpr struct {
    const char *path, *filePath, *fileName;
  } kCases[] = {{"a/b.plm", "a/b.plm", "b.plm"},
                {"a\\b.plm", "a\\b.plm", "a\\b.plm"},
                {nullptr, "nofile.plm", "nofile.plm"}};
  for (const auto& c : kCases) {
    file_.ChooseFile(c.path);
    EXPECT_STREQ(file_.GetFilePath(), c.filePath);
    EXPECT_STREQ(file_.GetFileName(), c.fileName);
  }
  GraphicsObjectInterface& graphics = file_;
  EXPECT_EQ(graphics.GetGraphicsObject(), &file_);
  EXPECT_EQ(graphics.GetProxyType(), 4);
  EXPECT_FALSE(graphics.IsForReadOnly());
}

TEST_F(MeasurementFileTest, NewFileTakesInfosAndAttributes) {
  file_.AddFileInfo("Lost", "no header yet");
  file_.AddFileAttribute({"Lost", "no list yet"});
  file_.ChooseFile(path_.c_str());
  ASSERT_EQ(file_.InitCollector(), 0);
  ASSERT_EQ(file_.UseCollector(), 0);
  file_.AddFileInfo("Description", "new");
  file_.AddFileAttribute({"Crew", "2"});
  EXPECT_EQ(Written(),
            "FileHeader \"KVT Object Text v1.08\",\"Polar measurements\"\r\n"
            "begin\r\n"
            "\tFileInfo \"Application\",\"Golden version 1.0\"\r\n"
            "\tFileInfo \"SerialNo\",\"4711\"\r\n"
            "\tFileInfo \"Author\",\"Surveyor\"\r\n"
            "\tFileInfo \"Company\",\"Company\"\r\n"
            "\tFileInfo \"Description\",\"new\"\r\n"
            "end\r\n"
            "InmStnList \r\n"
            "InmPrecision ,,,,\r\n"
            "AttributeList \r\n"
            "begin\r\n"
            "\tAttribute \"Crew\",\"2\"\r\n"
            "end\r\n");
}

}  // namespace
