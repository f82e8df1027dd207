// The fixed-column form of a coordinate file, `.pxy` and `.tun`.

#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/FixedColumns.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Time.h"

namespace {

using internal::PxyRecord;

constexpr int kWrongForm = -9;
constexpr int kHeaderLines = 2;

using HeaderLine = std::array<char, internal::kPxyLineSize>;

void Report(std::string_view text) { _GHAL::SystemMessage(Korvel::kDefaultLogLevel, text); }

int ReportCantOpen(const std::string& path) {
  Report("can't open pxy-file!");
  Report(path);
  return kWrongForm;
}

// The name up to the first "." that has another character before it; all of it if there is none.
std::string_view LineNameOf(std::string_view name) {
  const std::size_t start = name.find_first_not_of('.');
  return start == std::string_view::npos ? name : name.substr(0, name.find('.', start));
}

std::string_view PointNameOf(std::string_view name) { return name.substr(name.rfind('.') + 1); }

// Makes items of what is read.
class ItemSink {
 public:
  explicit ItemSink(PxyCoordinateFile& file) : file_(file) {}

  void StartLine(std::string_view name) { line_ = file_.CreateLine(std::string(name), 0); }

  void AddPoint(const PxyRecord& record, bool isInLine) {
    DataItemListObject& list = isInLine ? static_cast<DataItemListObject&>(*line_) : file_;
    list.InsertItem(new PointDataItem({record.x, record.y, record.z}, std::string(record.name),
                                      std::string(record.pointCode),
                                      std::string(record.specialCode), std::string(record.remark)),
                    -1);
  }

 private:
  PxyCoordinateFile& file_;
  LineDataItem* line_ = nullptr;
};

// Puts what is read into a compact store.
class StoreSink {
 public:
  explicit StoreSink(SimpleCoordinateFile& store) : store_(store) {}

  void StartLine(std::string_view name) {
    line_.SetName(std::string(name));
    if (!store_.InsertLine(&line_)) throw std::bad_alloc();
  }

  void AddPoint(const PxyRecord& record, bool /*isInLine*/) {
    if (!store_.InsertPoint({record.x, record.y, record.z}, record.name, record.pointCode,
                            record.specialCode, record.remark, GeoFileColors::ColorUndef)) {
      throw std::bad_alloc();
    }
  }

 private:
  SimpleCoordinateFile& store_;
  LineDataItem line_;
};

// The contents of the header lines aren't looked at.
bool SkipHeader(GeoFile& file) {
  std::string_view line;
  for (int i = 0; i < kHeaderLines; ++i) {
    if (!file.ReadLine(line)) return false;
  }
  return true;
}

// Reads all point lines. A change of the line name starts a line; a plain point between the points
// of a line doesn't end it.
template <class Sink>
void ReadPoints(GeoFile& file, bool isPxy, Sink sink) {
  std::string lastLineName;
  std::string_view line;
  PxyRecord record;
  while (file.ReadLine(line)) {
    ColumnReader columns(line);
    internal::StreamPxyColumns(columns, record);
    const bool isInLine = isPxy && record.name.find('.') != std::string_view::npos;
    if (isInLine) {
      const std::string_view lineName = LineNameOf(record.name);
      if (lineName != lastLineName) sink.StartLine(lastLineName = lineName);
      record.name = PointNameOf(record.name);
    }
    sink.AddPoint(record, isInLine);
  }
}

template <class Sink>
int ReadFile(const std::string& path, bool isPxy, Sink sink) {
  GeoFile file;
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, true) != 0) return ReportCantOpen(path);
  if (!SkipHeader(file)) {
    Report("Bogus pxy-file!");
    return kWrongForm;
  }
  ReadPoints(file, isPxy, sink);
  return _FileIO::CloseFile(file);
}

HeaderLine FirstHeaderLine() {
  const GeoDate today = _Time::GetDateLocal();
  HeaderLine line;
  ColumnWriter columns(line.data());
  columns.Stream("XYZ-COORD-FILE", Column{0, 14});
  columns.Stream(",", Column{16, 1});
  columns.Stream("V1.00", Column{17, 5});
  columns.Stream(",", Column{22, 1});
  columns.Stream(SF::dformat("%i-%02i-%02i", today.year, today.month, today.day), Column{23, 10});
  columns.Close(internal::kPxyLineEnd, internal::kPxyEndOffset);
  return line;
}

HeaderLine SecondHeaderLine() {
  HeaderLine line;
  ColumnWriter columns(line.data());
  columns.Stream(",", Column{40, 1});
  columns.Close(internal::kPxyLineEnd, internal::kPxyEndOffset);
  return line;
}

void WriteHeader(GeoFile& file) {
  for (const HeaderLine& line : {FirstHeaderLine(), SecondHeaderLine()}) {
    _FileIO::WriteFile(file, line.data(), line.size());
  }
}

void WritePxyPoint(const std::string& lineName, const PointDataItem& point, GeoFile& file) {
  std::string fullName;
  if (!lineName.empty()) fullName = lineName + '.' + point.NameText();
  const std::string& name = lineName.empty() ? point.NameText() : fullName;
  std::array<char, internal::kPxyLongestLine> line;
  const char* end =
      internal::PutPxyRecord(line.data(), {name, point.y, point.x, point.z, point.GetPointCode(),
                                           point.GetSpecialCode(), point.GetRemark()});
  _FileIO::WriteFile(file, line.data(), static_cast<std::size_t>(end - line.data()));
}

void WritePoints(const std::string& lineName, const DataItemListObject& list, GeoFile& file) {
  const Korvel::scoped_lock<DataItemListObject> lock(list);
  for (const DataItemInterface& item : list) {
    if (const auto* point = dynamic_cast<const PointDataItem*>(&item)) {
      WritePxyPoint(lineName, *point, file);
    } else if (const auto* line = dynamic_cast<const LineDataItem*>(&item)) {
      WritePoints(line->NameText(), *line, file);
    }
  }
}

}  // namespace

int PxyCoordinateFile::ReadPxyFile(bool isPxy) { return ReadFile(path_, isPxy, ItemSink(*this)); }

int PxyCoordinateFile::ReadPxyFileSimple(bool isPxy) {
  auto store = std::make_shared<SimpleCoordinateFile>();
  dataHolder_ = store;
  const int result = ReadFile(path_, isPxy, StoreSink(*store));
  store->FinishedReading();
  return result;
}

int PxyCoordinateFile::WritePxyFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) return ReportCantOpen(path_);
  WriteHeader(file);
  WritePoints("", *this, file);
  return _FileIO::CloseFile(file);
}
