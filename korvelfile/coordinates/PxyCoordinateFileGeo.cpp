// The object text form of a coordinate file, `.geo` and `.llc`.

#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/coordinates/internal/CodesCache.h"
#include "korvelfile/coordinates/internal/GeoGrammar.h"
#include "korvelfile/coordinates/internal/NameQueue.h"
#include "korvelfile/coordinates/internal/PointRow.h"
#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/GeoFileColors.h"
#include "korvelfile/data/ItemCast.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Ghal.h"

namespace {

constexpr int kWrongForm = -9;
constexpr const char* kLineKeyword = "Line";

void Report(std::string_view text, const std::string& path) {
  _GHAL::SystemMessage(text);
  _GHAL::SystemMessage(path);
}

// Makes items of what is read.
class ItemSink {
 public:
  explicit ItemSink(DataItemListObject& file) : file_(file), lock_(file), points_(&file) {}

  bool TakesVersion(int version) const { return version <= giMarlinGeoFileVersion; }

  DataItemListObject* Point(std::string_view row, int /*version*/) {
    if (!row_.Read(row)) return nullptr;
    auto* point = new PointDataItem({row_.x, row_.y, row_.z},
                                    codes_.Get(row_.pointCode, row_.specialCode, row_.remark));
    points_->InsertItem(point, -1);
    names_.Add(*point, row_.name);
    if (row_.specialCode == "R") point->SetType(PointDataItemType::Radius);
    return point;
  }
  void EndPoint() {}
  void Finish() { names_.Finish(); }

  DataItemListObject* Line(std::string_view row, int version) {
    auto* line = new LineDataItem;
    file_.InsertItem(line, -1);
    points_ = line;
    return ReadObjectRow(row, kLineKeyword, line, version) ? line : nullptr;
  }
  void EndLine() {}

 private:
  DataItemListObject& file_;
  const Korvel::scoped_lock<DataItemListObject> lock_;
  DataItemListObject* points_;
  internal::PointRow row_;
  internal::CodesCache codes_;
  internal::NameQueue names_;
};

// Puts what is read into a compact store. Only colours are kept of the attributes.
class StoreSink {
 public:
  explicit StoreSink(SimpleCoordinateFile& store) : store_(store) {}

  bool TakesVersion(int /*version*/) const { return true; }

  DataItemListObject* Point(std::string_view row, int /*version*/) {
    return row_.Read(row) ? &pointAttributes_ : nullptr;
  }

  void EndPoint() {
    const unsigned int colour = TakeColour(pointAttributes_);
    if (!store_.InsertPoint({row_.x, row_.y, row_.z}, row_.name, row_.pointCode, row_.specialCode,
                            row_.remark, colour)) {
      throw std::bad_alloc();
    }
  }

  DataItemListObject* Line(std::string_view row, int version) {
    if (!ReadObjectRow(row, kLineKeyword, &line_, version)) return nullptr;
    if (!store_.InsertLine(&line_)) throw std::bad_alloc();
    return &line_;
  }
  void EndLine() { store_.InsertLineColor(TakeColour(line_)); }

 private:
  static unsigned int TakeColour(DataItemListObject& attributes) {
    if (attributes.empty()) return GeoFileColors::ColorUndef;
    const unsigned int colour = GeoFileColors::GetObjectColor(&attributes);
    attributes.ClearListObject();
    return colour;
  }

  SimpleCoordinateFile& store_;
  internal::PointRow row_;
  DataItemListObject pointAttributes_;
  LineDataItem line_;
};

void WriteTag(GeoFile& file, int indent, const char* tag) {
  _FileIO::WriteFile(file, std::string(gszIndent[indent]) + tag + "\r\n");
}

void WritePoint(GeoFile& file, PointDataItem& point, int indent, std::string& row) {
  row.clear();
  internal::AppendPointRow(row, indent, point);
  _FileIO::WriteFile(file, row);
  if (point.empty()) return;
  WriteTag(file, indent, "begin");
  WriteAttributeList(file, &point, giMarlinGeoFileVersion, indent + 1);
  WriteTag(file, indent, "end");
}

// Writes a list's keyword, and its items of the class `T` in a block if there are any.
template <class T, class WriteItem>
bool WriteList(GeoFile& file, DataItemListObject& list, int indent, const char* keyword,
               WriteItem writeItem) {
  const Korvel::scoped_lock<DataItemListObject> lock(list);
  WriteTag(file, indent, keyword);
  bool hasItems = false;
  for (DataItemInterface& candidate : list) {
    auto* item = ItemCast<T>(&candidate);
    if (!item) continue;
    if (!hasItems) WriteTag(file, indent, "begin");
    hasItems = true;
    writeItem(*item);
  }
  if (hasItems) WriteTag(file, indent, "end");
  return !_FileIO::HasFailed(file);
}

bool WritePointList(GeoFile& file, DataItemListObject& list, int indent) {
  std::string row;
  return WriteList<PointDataItem>(file, list, indent, "PointList ", [&](PointDataItem& point) {
    WritePoint(file, point, indent + 1, row);
  });
}

void WriteLine(GeoFile& file, LineDataItem& line) {
  std::string row;
  WriteObjectRow(1, row, kLineKeyword, &line, giMarlinGeoFileVersion);
  _FileIO::WriteFile(file, row);
  WriteTag(file, 1, "begin");
  WritePointList(file, line, 2);
  WriteTag(file, 1, "end");
}

bool WriteLineList(GeoFile& file, DataItemListObject& list) {
  return WriteList<LineDataItem>(file, list, 0, "LineList ",
                                 [&](LineDataItem& line) { WriteLine(file, line); });
}

}  // namespace

int PxyCoordinateFile::ReadGeoFile() {
  return ReadGeo([this](GeoFileTextInputStream& in) {
    ItemSink sink(*this);
    internal::GeoGrammar grammar(in, *this, sink);
    if (!grammar.ReadHeader() || !grammar.ReadLists()) return false;
    sink.Finish();
    bool hasAttributes = false;
    if (!grammar.ReadFileAttributes(hasAttributes)) return false;
    if (!hasAttributes) InsertItem(new GeoAttribList, -1);
    return true;
  });
}

int PxyCoordinateFile::ReadGeoFileSimple() {
  return ReadGeo([this](GeoFileTextInputStream& in) {
    auto store = std::make_shared<SimpleCoordinateFile>();
    StoreSink sink(*store);
    internal::GeoGrammar grammar(in, *this, sink);
    if (!grammar.ReadHeader()) return false;
    dataHolder_ = store;
    bool hasAttributes = false;
    if (!grammar.ReadLists() || !grammar.ReadFileAttributes(hasAttributes)) return false;
    if (hasAttributes) store->SetFileColor(GeoFileColors::GetObjectColor(this));
    store->FinishedReading();
    return true;
  });
}

int PxyCoordinateFile::ReadGeo(const std::function<bool(GeoFileTextInputStream&)>& read) {
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kRead, true) != 0) {
    Report("can't open pxy-file!", path_);
    return kWrongForm;
  }
  GeoFileTextInputStream in(file);
  if (!read(in)) {
    SetFaultLine(in.GetLineNumber());
    _GHAL::SystemMessage("Invalid Geo-file format");
    return kWrongForm;
  }
  return _FileIO::CloseFile(file);
}

int PxyCoordinateFile::WriteGeoFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  const auto fail = [&](const char* text) {
    Report(text, path_);
    return kWrongForm;
  };
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) {
    return fail("can't create geo-file!");
  }
  if (!WriteFileHeader(file, this, giMarlinGeoFileVersion)) return fail("File Header missing: ");
  if (!WritePointList(file, *this, 0)) return fail("Failed to write PointList: ");
  if (!WriteLineList(file, *this)) return fail("Failed to write LineList: ");
  if (!WriteAttributeList(file, this, giMarlinGeoFileVersion, 0)) {
    // All data is written, and the reader does without this list: the file is put in place.
    _FileIO::CloseFile(file);
    return fail("Failed to write Attributelist: ");
  }
  return _FileIO::CloseFile(file);
}
