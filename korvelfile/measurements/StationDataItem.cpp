#include "korvelfile/measurements/StationDataItem.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/IStationVisitor.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/internal/ItemFields.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/DataTextInputStream.h"
#include "korvelfile/outside/base/DataTextOutputStream.h"
#include "korvelfile/outside/base/NumberText.h"

namespace {

constexpr const char* kAPrioriAttribute = "FSASD";
constexpr const char* kAccuracyAttributes[] = {"sN", "sE", "s0", "sZ"};
constexpr char kLineSeparator = '.';

constexpr int kFirstFullDate = 1000000;  // below it a date has a two-digit year
constexpr int kFirstOfLastCentury = 800000;
constexpr int kLastCentury = 19000000;
constexpr int kThisCentury = 20000000;

constexpr int kSignificantDigits = 17;  // bring every double back

double DateFromText(std::string_view text) {
  if (text.empty()) return 0.0;
  std::string digits(text);
  std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
  const int date = ParseInt(digits);
  if (date >= kFirstFullDate) return date;
  return date + (date >= kFirstOfLastCentury ? kLastCentury : kThisCentury);
}

void StreamDate(DataStream& stream, int version, double& date) {
  if (version >= PlmTypes::kDateAsNumber) {
    stream.Stream(date);
    return;
  }
  std::string text = GeneralText(date, kSignificantDigits);
  stream.Stream(text);
  if (!stream.IsStoring()) date = DateFromText(text);
}

// `date`, or 0 where it is no date whose parts would fit an `int`.
double DateOrNothing(double date) {
  return date >= 0.0 && date < std::numeric_limits<int>::max() ? date : 0.0;
}

bool IsOfType(const RecordDataItem& record, PlmTypes::inm_rec_t type) {
  return type == PlmTypes::RecordAny || record.Type == type;
}

void AddToCircleReadings(const DataItemListObject& list, double angle) {
  TypedItemCursor<RecordDataItem> records(list);
  RecordDataItem* record = nullptr;
  while (records.Next(record) == 0) record->HorAngle += angle;
}

RecordDataItem* RecordAt(const DataItemListObject& list, int index) {
  return dynamic_cast<RecordDataItem*>(list.GetItem(static_cast<std::size_t>(index)));
}

std::string NameOf(const RecordDataItem* record) { return record ? record->GetName() : ""; }

// Moves `record` from the list of its station to the end of `line`, without its line number.
void MoveToLine(DataItemListObject& station, RecordDataItem* record, InmlineDataItem& line) {
  record->RemoveLineNo(kLineSeparator);
  station.RemoveItem(record);
  line.InsertItem(record, -1);
}

// Puts a new line named for the line number of `first`, which it takes in, in the place `index`.
InmlineDataItem* OpenLine(DataItemListObject& station, RecordDataItem* first, int index) {
  auto* line = new InmlineDataItem;
  line->SetName(first->GetLineNo(kLineSeparator));
  station.InsertItem(line, index);
  MoveToLine(station, first, *line);
  return line;
}

}  // namespace

StationDataItem& StationDataItem::operator=(StationDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  StationFields::operator=(std::move(other));
  return *this;
}

void StationDataItem::CopyShallow(const StationDataItem& other) {
  const double offsetMiddle = OffsetMiddle;
  SetName(other.NameText());
  StationFields::operator=(other);
  OffsetMiddle = offsetMiddle;
}

bool StationDataItem::Establish(const Vector3d& enh, double zeroAngle) {
  Coordinates = enh;
  ZeroAngle = zeroAngle;
  return true;
}

RecordDataItem* StationDataItem::GetRecord(PlmTypes::inm_rec_t type, int index) {
  constexpr int kLast = -1;
  TypedItemCursor<RecordDataItem> records(*this);
  RecordDataItem* record = nullptr;
  RecordDataItem* last = nullptr;
  int count = 0;
  while (records.Next(record) == 0) {
    if (!IsOfType(*record, type)) continue;
    if (count++ == index) return record;
    last = record;
  }
  return index == kLast ? last : nullptr;
}

int StationDataItem::GetRecordCount(PlmTypes::inm_rec_t type) {
  TypedItemCursor<RecordDataItem> records(*this);
  RecordDataItem* record = nullptr;
  int count = 0;
  while (records.Next(record) == 0) count += IsOfType(*record, type) ? 1 : 0;
  return count;
}

InmlineDataItem* StationDataItem::CreateLine(const std::string& name, int /*unused*/) {
  auto* line = new InmlineDataItem;
  line->SetName(name);
  InsertItem(line, -1);
  return line;
}

void StationDataItem::GenerateLines() {
  const Korvel::scoped_lock<DataItemListObject> lock(*this);
  if (empty()) return;
  RecordDataItem* previous = RecordAt(*this, 0);
  std::string previousName = NameOf(previous);  // with its line number, while the line grows
  InmlineDataItem* line = nullptr;
  for (int index = 1; index < GetNumberOfItems();) {
    RecordDataItem* current = RecordAt(*this, index);
    if (previous && current && current->ConnectedTo(previousName)) {
      if (!line) line = OpenLine(*this, previous, index - 1);
      MoveToLine(*this, current, *line);
      continue;
    }
    line = nullptr;
    previous = current;
    previousName = NameOf(current);
    ++index;
  }
}

String StationDataItem::GetDateText() const {
  if (Date == 0.0) return {};
  const double date = DateOrNothing(Date);
  const int n = static_cast<int>(date);
  const int year = n / 10000;
  const int month = (n - year * 10000) / 100;
  const int day = n - year * 10000 - month * 100;
  const int t = RoundInt((date - n) * 1000000);
  const int hour = t / 10000;
  const int minute = (t - hour * 10000) / 100;
  const int second = t - (hour * 100 + minute) * 100;
  return SF::dformat("%d-%02d-%02d  %02d:%02d:%02d", year, month, day, hour, minute, second);
}

std::shared_ptr<PointDataItem> StationDataItem::GetStationPoint() const {
  auto point = std::make_shared<PointDataItem>(Coordinates, GetName(), "", "", "");
  for (const char* name : kAccuracyAttributes) {
    if (const GeoAttrib* attribute = GeoAttrib::GetAttribute(this, name)) {
      GeoAttrib::PutAttribute(point.get(), attribute->Name.c_str(), attribute->Value.c_str(),
                              false);
    }
  }
  return point;
}

bool StationDataItem::GetFreeStationAPriori(PrecisionDataItem& precision) const {
  const GeoAttrib* attribute = GeoAttrib::GetAttribute(this, kAPrioriAttribute);
  if (!attribute) return false;
  DataTextInputStream fields(attribute->Value);
  precision.Stream(fields, precision.GetVersion());
  return true;
}

void StationDataItem::SetFreeStationAPriori(PrecisionDataItem& precision) {
  std::string text;
  DataTextOutputStream fields(text);
  precision.Stream(fields, precision.GetVersion());
  GeoAttrib::PutAttribute(this, kAPrioriAttribute, text.c_str(), false);
}

void StationDataItem::ResetZeroAngle() {
  // Added to a reading of 0.0 the undefined number would make it undefined.
  const double angle = IsUndefined(ZeroAngle) ? 0.0 : ZeroAngle;
  AddToCircleReadings(*this, angle);
  TypedItemCursor<InmlineDataItem> lines(*this);
  InmlineDataItem* line = nullptr;
  while (lines.Next(line) == 0) AddToCircleReadings(*line, angle);
  ZeroAngle = 0.0;
}

void StationDataItem::Accept(std::shared_ptr<IStationVisitor> visitor) {
  visitor->VisitStation(*this);
  RecordDataItem* record = nullptr;
  TypedItemCursor<RecordDataItem> records(*this);
  while (records.Next(record) == 0) visitor->VisitRecord(*this, *record);
  InmlineDataItem* line = nullptr;
  TypedItemCursor<InmlineDataItem> lines(*this);
  while (lines.Next(line) == 0) {
    visitor->VisitLine(*this, *line);
    TypedItemCursor<RecordDataItem> lineRecords(*line);
    while (lineRecords.Next(record) == 0) visitor->VisitLineRecord(*this, *line, *record);
  }
}

void StationDataItem::Stream(DataStream& stream, int version) {
  internal::StreamName(stream, *this);
  stream.Stream(InstrumentHeight);
  stream.Stream(SlopeDistance);
  stream.Stream(HeightsMeasured);
  stream.Stream(VerticalIsHeightDiff);
  stream.Stream(Option3);
  stream.Stream(Option4);
  stream.Stream(Option5);
  internal::StreamAs<unsigned char>(stream, StationType);
  stream.Stream(Option6);
  stream.Stream(Option7);
  stream.Stream(Option8);
  stream.Stream(Option9);
  stream.Stream(OffsetVertical);
  stream.Stream(OffsetMiddle);
  stream.Stream(OffsetSideways);
  stream.Stream(Temperature);
  stream.Stream(Pressure);
  stream.Stream(Text1);
  StreamDate(stream, version, Date);
  stream.Stream(Text2);
  stream.Stream(Small0);
  stream.Stream(Small1);
  stream.Stream(Small2);
  stream.Stream(Text3);
  if (version >= PlmTypes::kAtmApplied) stream.Stream(AtmApplied);
  if (version >= PlmTypes::kCurvature) {
    stream.Stream(EarthRadius);
    stream.Stream(RefractionK);
    stream.Stream(CurvatureOn);
  }
  if (version >= PlmTypes::kScalePpm) stream.Stream(ScalePpm);
  if (version >= PlmTypes::kRefractivity) {
    stream.Stream(InstrumentN);
    stream.Stream(InstrumentA);
  }
}
