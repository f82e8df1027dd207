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
#include "korvelfile/coordinates/internal/CodesCache.h"
#include "korvelfile/coordinates/internal/NameQueue.h"
#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/FixedColumns.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/data/ItemCast.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"

namespace {

using internal::PxyRecord;

constexpr int kWrongForm = -9;
constexpr int kHeaderLines = 2;

int ReportCantOpen(const std::string& path) {
  _GHAL::SystemMessage("can't open pxy-file!");
  _GHAL::SystemMessage(path);
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
  explicit ItemSink(PxyCoordinateFile& file) : file_(file), lock_(file) {}

  void StartLine(std::string_view name) { line_ = file_.CreateLine(std::string(name), 0); }

  void AddPoint(const PxyRecord& record, bool isInLine) {
    DataItemListObject& list = isInLine ? static_cast<DataItemListObject&>(*line_) : file_;
    auto* point =
        new PointDataItem({record.x, record.y, record.z},
                          codes_.Get(record.pointCode, record.specialCode, record.remark));
    list.InsertItem(point, -1);
    names_.Add(*point, record.name);
  }

  void Finish() { names_.Finish(); }

 private:
  PxyCoordinateFile& file_;
  const Korvel::scoped_lock<DataItemListObject> lock_;
  LineDataItem* line_ = nullptr;
  internal::CodesCache codes_;
  internal::NameQueue names_;
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

  void Finish() { store_.FinishedReading(); }

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

// Opens a file to read its point lines; gives 0 or the result of the failure.
int OpenBehindHeader(const std::string& path, GeoFile& file) {
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, true) != 0) return ReportCantOpen(path);
  if (SkipHeader(file)) return 0;
  _GHAL::SystemMessage("Bogus pxy-file!");
  return kWrongForm;
}

// Reads all point lines. A change of the line name starts a line; a plain point between the points
// of a line doesn't end it.
template <class Sink>
void ReadPoints(GeoFile& file, bool isPxy, Sink& sink) {
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
  sink.Finish();
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

void WriteLine(LineDataItem& line, GeoFile& file) {
  const Korvel::scoped_lock<DataItemListObject> lock(line);
  for (DataItemInterface& item : line) {
    if (const auto* point = ItemCast<PointDataItem>(&item)) {
      WritePxyPoint(line.NameText(), *point, file);
    }
  }
}

void WriteItems(DataItemListObject& list, GeoFile& file) {
  const Korvel::scoped_lock<DataItemListObject> lock(list);
  for (DataItemInterface& item : list) {
    if (const auto* point = ItemCast<PointDataItem>(&item)) {
      WritePxyPoint("", *point, file);
    } else if (auto* line = ItemCast<LineDataItem>(&item)) {
      WriteLine(*line, file);
    }
  }
}

}  // namespace

int PxyCoordinateFile::ReadPxyFile(bool isPxy) {
  GeoFile file;
  const int result = OpenBehindHeader(path_, file);
  if (result != 0) return result;
  ItemSink sink(*this);
  ReadPoints(file, isPxy, sink);
  return _FileIO::CloseFile(file);
}

int PxyCoordinateFile::ReadPxyFileSimple(bool isPxy) {
  GeoFile file;
  const int result = OpenBehindHeader(path_, file);
  if (result != 0) return result;
  auto store = std::make_shared<SimpleCoordinateFile>();
  dataHolder_ = store;
  StoreSink sink(*store);
  ReadPoints(file, isPxy, sink);
  return _FileIO::CloseFile(file);
}

int PxyCoordinateFile::WritePxyFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) return ReportCantOpen(path_);
  internal::WritePxyHeader(file);
  WriteItems(*this, file);
  return _FileIO::CloseFile(file);
}
