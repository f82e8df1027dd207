#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/measurements/IStationVisitor.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tests/measurements/ItemText.h"

namespace {

using testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

RecordDataItem* AddRecord(DataItemListObject& list, const std::string& name,
                          PlmTypes::inm_rec_t type = PlmTypes::RecordAny) {
  auto* record = new RecordDataItem;
  record->SetName(name);
  record->Type = type;
  list.InsertItem(record, -1);
  return record;
}

// The items below `list`, as in "a b 12(1 2) c".
std::string Tree(const DataItemListObject& list) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    DataItemInterface* item = list.GetItem(i);
    text += (i ? " " : "") + item->GetName();
    if (auto* line = dynamic_cast<InmlineDataItem*>(item)) text += "(" + Tree(*line) + ")";
  }
  return text;
}

TEST(StationDataItem, DateText) {
  constexpr const char* kNoDate = "0-00-00  00:00:00";
  const struct {
    double date;
    const char* text;
  } kCases[] = {
      {0.0, ""},
      {-0.0, ""},
      {20190423.153005, "2019-04-23  15:30:05"},
      {20001231.235959, "2000-12-31  23:59:59"},
      {19980512, "1998-05-12  00:00:00"},
      {kUndefined, kNoDate},
      {-1.0, kNoDate},
      {1e300, kNoDate},
      {kNaN, kNoDate},
      {-kInf, kNoDate},
  };
  for (const auto& c : kCases) {
    StationDataItem station;
    station.Date = c.date;
    EXPECT_EQ(station.GetDateText(), c.text) << c.date;
  }
}

TEST(StationDataItem, DateTextOfOldFiles) {
  constexpr struct {
    const char* text;
    double date;
  } kCases[] = {
      {"98-05-12", 19980512},
      {"03.11.20", 20031120},
      {"800000", 19800000},
      {"799999", 20799999},
      {"", 0.0},
      {"2019-04-23", 20190423},
      {"no date", 20000000},
      {"99999999999999999999", 2147483647.0},
      {"1000000", 1000000},
  };
  const std::string before = "\"\",,,,,,,,,,,,,,,,,,\"\",\"";
  for (const auto& c : kCases) {
    const auto station = ItemFrom<StationDataItem>(before + c.text + "\",\"T2\"", 0x10001);
    EXPECT_EQ(station.Date, c.date) << c.text;
    EXPECT_EQ(station.Text2, "T2") << c.text;
  }
}

TEST(StationDataItem, RowOfEachVersion) {
  const std::string start = "\"S\",1,2,3,4,5,6,7,200,9,10,11,12,13,14,15,16,17,\"18\",";
  const std::string end = ",\"20\",21,-22,-128,\"24\"";
  const struct {
    int version;
    std::string row;
  } kCases[] = {
      {0x10001, start + "\"20190423\"" + end},
      {0x10002, start + "20190423" + end},
      {0x10003, start + "20190423" + end + ",25"},
      {0x10005, start + "20190423" + end + ",25"},
      {0x10006, start + "20190423" + end + ",25,26,27,28"},
      {0x10007, start + "20190423" + end + ",25,26,27,28,29"},
      {0x10008, start + "20190423" + end + ",25,26,27,28,29,30,31"},
  };
  for (const auto& c : kCases) {
    auto station = ItemFrom<StationDataItem>(c.row, c.version);
    EXPECT_EQ(FieldsOf(station, c.version), c.row) << std::hex << c.version;
    EXPECT_EQ(station.StationType, 200);
  }
}

TEST(StationDataItem, FieldsThatCameLaterKeepTheirDefaults) {
  const auto old = ItemFrom<StationDataItem>("\"S\"", 0x10005);
  EXPECT_EQ(old.EarthRadius, 6389000.0);
  EXPECT_EQ(old.RefractionK, 0.14);
  EXPECT_EQ(old.CurvatureOn, 1);
  EXPECT_EQ(old.InstrumentN, 0.0);
  EXPECT_EQ(old.ScalePpm, 0.0);
  const auto blank = ItemFrom<StationDataItem>("\"S\"", PlmTypes::kVersion);
  EXPECT_EQ(blank.EarthRadius, kUndefined);
  EXPECT_EQ(blank.CurvatureOn, 0);
  EXPECT_EQ(blank.SlopeDistance, 0);
  EXPECT_EQ(blank.Small1, 0);
}

TEST(StationDataItem, RecordsByKindAndIndex) {
  StationDataItem station;
  EXPECT_EQ(station.GetRecord(PlmTypes::RecordAny, -1), nullptr);
  RecordDataItem* a = AddRecord(station, "a", PlmTypes::RecordFreeBacksight);
  AddRecord(*station.CreateLine("12", 0), "inLine", PlmTypes::RecordFreeBacksight);
  RecordDataItem* b = AddRecord(station, "b");
  RecordDataItem* c = AddRecord(station, "c", PlmTypes::RecordFreeBacksight);
  const struct {
    PlmTypes::inm_rec_t type;
    int index;
    RecordDataItem* record;
  } kCases[] = {
      {PlmTypes::RecordFreeBacksight, 0, a},
      {PlmTypes::RecordFreeBacksight, 1, c},
      {PlmTypes::RecordFreeBacksight, -1, c},
      {PlmTypes::RecordFreeBacksight, 2, nullptr},
      {PlmTypes::RecordAny, 1, b},
      {PlmTypes::RecordAny, -1, c},
      {PlmTypes::RecordAny, -2, nullptr},
      {PlmTypes::RecordKnownBacksight, -1, nullptr},
  };
  for (const auto& k : kCases)
    EXPECT_EQ(station.GetRecord(k.type, k.index), k.record) << k.type << " " << k.index;
  EXPECT_EQ(station.GetRecordCount(PlmTypes::RecordAny), 3);
  EXPECT_EQ(station.GetRecordCount(PlmTypes::RecordFreeBacksight), 2);
}

TEST(StationDataItem, GenerateLines) {
  const struct {
    std::vector<std::string> names;  // "!" is a line of its own
    const char* tree;
  } kCases[] = {
      {{}, ""},
      {{"12.1"}, "12.1"},
      {{"12.1", "12.2", "12.3"}, "12(1 2 3)"},
      {{"a", "12.1", "12.2", "b"}, "a 12(1 2) b"},
      {{"12.1", "13.1", "12.2"}, "12.1 13.1 12.2"},
      {{"12.1", "12.2", "13.1", "13.2"}, "12(1 2) 13(1 2)"},
      {{"12.1.7", "12.2.7"}, "12(1.7 2.7)"},
      {{".1", ".2", "3", "3"}, ".1 .2 3 3"},
      {{"12.1", "!", "12.2", "12.3"}, "12.1 !() 12(2 3)"},
      {{"!", "!"}, "!() !()"},
  };
  for (const auto& c : kCases) {
    StationDataItem station;
    for (const std::string& name : c.names) {
      name == "!" ? void(station.CreateLine(name, 0)) : void(AddRecord(station, name));
    }
    station.GenerateLines();
    EXPECT_EQ(Tree(station), c.tree);
    station.GenerateLines();
    EXPECT_EQ(Tree(station), c.tree) << "again";
  }
}

TEST(StationDataItem, ResetZeroAngleReachesDirectLines) {
  StationDataItem station;
  RecordDataItem* direct = AddRecord(station, "a");
  InmlineDataItem* line = station.CreateLine("12", 0);
  RecordDataItem* inLine = AddRecord(*line, "b");
  auto* inner = new InmlineDataItem;
  line->InsertItem(inner, -1);
  RecordDataItem* deep = AddRecord(*inner, "c");
  station.ResetZeroAngle();
  EXPECT_EQ(direct->HorAngle, 0.0) << "an undefined angle adds nothing";
  direct->HorAngle = 5.0;
  station.ZeroAngle = 4.0;
  station.ResetZeroAngle();
  EXPECT_EQ(direct->HorAngle, 9.0);
  EXPECT_EQ(inLine->HorAngle, 4.0);
  EXPECT_EQ(deep->HorAngle, 0.0);
  EXPECT_EQ(station.ZeroAngle, 0.0);
}

class Noting : public IStationVisitor {
 public:
  explicit Noting(std::vector<std::string>& notes) : notes_(notes) {}

  void VisitStation(StationDataItem& s) override { notes_.push_back("station " + s.GetName()); }
  void VisitLineRecord(StationDataItem&, InmlineDataItem& l, RecordDataItem& r) override {
    notes_.push_back(l.GetName() + "/" + r.GetName());
  }
  void VisitRecord(StationDataItem& s, RecordDataItem& r) override {
    s.GetRecord(PlmTypes::RecordAny, -1);  // the list's mutex is this thread's already
    notes_.push_back(r.GetName());
  }
  void VisitLine(StationDataItem&, InmlineDataItem& l) override {
    notes_.push_back("line " + l.GetName());
  }

 private:
  std::vector<std::string>& notes_;
};

TEST(StationDataItem, VisitorSeesAllDirectRecordsFirst) {
  StationDataItem station;
  station.SetName("S");
  AddRecord(station, "a");
  AddRecord(*station.CreateLine("12", 0), "1");
  station.CreateLine("13", 0);
  AddRecord(station, "b");
  std::vector<std::string> notes;
  station.Accept(std::make_shared<Noting>(notes));
  EXPECT_THAT(notes, ElementsAre("station S", "a", "b", "line 12", "12/1", "line 13"));
}

TEST(StationDataItem, APrioriErrorsPassThroughTheAttribute) {
  StationDataItem station;
  PrecisionDataItem precision;
  EXPECT_FALSE(station.GetFreeStationAPriori(precision));
  precision.AngleError = 1e-5;
  precision.DistancePpm = 2;
  EXPECT_FALSE(precision.IsValid());
  station.SetFreeStationAPriori(precision);
  EXPECT_EQ(GeoAttrib::GetAttribute(&station, "FSASD")->Value, "1.000000000000000e-05,,,2,");
  PrecisionDataItem read;
  read.VerticalError = 7;
  EXPECT_TRUE(station.GetFreeStationAPriori(read));
  EXPECT_EQ(read.AngleError, 1e-5);
  EXPECT_EQ(read.VerticalError, kUndefined);
  read.VerticalError = read.DistanceError = 1;
  EXPECT_TRUE(read.IsValid());
}

TEST(StationDataItem, StationPointTakesTheAccuracy) {
  StationDataItem station;
  station.SetName("S");
  station.Establish({1, 2, 3}, 4);
  GeoAttrib::PutAttribute(&station, "SE", "0.001", false);
  GeoAttrib::PutAttribute(&station, "s0", "1", false);
  GeoAttrib::PutAttribute(&station, "FSASD", "1", false);
  const auto point = station.GetStationPoint();
  EXPECT_EQ(point->GetName(), "S");
  EXPECT_EQ(static_cast<Vector3d>(*point), Vector3d(1, 2, 3));
  EXPECT_EQ(GeoAttrib::GetAttribList(point.get())->GetNumberOfItems(), 2);
  EXPECT_EQ(GeoAttrib::GetAttribute(point.get(), "sE")->Value, "0.001");
}

TEST(StationDataItem, Copies) {
  StationDataItem station;
  station.SetName("S");
  station.OffsetMiddle = 1.5;
  station.InstrumentA = 79;
  station.Establish({1, 2, 3}, 4);
  AddRecord(station, "a");
  StationDataItem copy;
  copy = station;
  EXPECT_EQ(copy.OffsetMiddle, 1.5);
  copy.GetRecord(PlmTypes::RecordAny, 0)->SetName("b");
  EXPECT_EQ(Tree(station), "a");
  StationDataItem shallow;
  shallow.CopyShallow(station);
  EXPECT_EQ(shallow.OffsetMiddle, 0.0);
  EXPECT_EQ(shallow.GetName(), "S");
  EXPECT_EQ(shallow.InstrumentA, 79);
  EXPECT_EQ(shallow.ZeroAngle, 4);
  EXPECT_TRUE(shallow.empty());
}

}  // namespace
