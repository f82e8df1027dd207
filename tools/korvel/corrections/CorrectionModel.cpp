#include "tools/korvel/corrections/CorrectionModel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/corrections/GridShape.h"

namespace {

using korvel::CorrectionModel;
using korvel::InputError;
using korvel::ModelExtent;
using korvel::ModelKind;

struct KindEntry {
  ModelKind kind;
  std::string_view magic;
  const char* name;
  const char* group;
};

// How files begin; these bytes never change.
constexpr std::array kKinds{
    KindEntry{ModelKind::CorrectionGrid, "KVT Coordinate Correction Grid", "a correction grid",
              "grid"},
    KindEntry{ModelKind::Network, "TRIAD   ", "a triangulated network", "triad"},
    KindEntry{ModelKind::GeoidGrid, {"\x09\x03\0\0", 4}, "a geoid grid", "geoid"},
    KindEntry{ModelKind::GeoidGrid, {"\x0A\x03\0\0", 4}, "a geoid grid", "geoid"},
};

const KindEntry& EntryOf(ModelKind kind) {
  return *std::find_if(kKinds.begin(), kKinds.end(),
                       [&](const KindEntry& entry) { return entry.kind == kind; });
}

// The kind that the file begins as, or null. What is missing of a short file counts as zeros.
const KindEntry* FindEntry(const std::string& path) {
  std::array<char, 32> bytes{};
  GeoFile file;
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, false) == 0)
    _FileIO::ReadFile(file, bytes.data(), bytes.size());
  const std::string_view start(bytes.data(), bytes.size());
  const auto* entry = std::find_if(kKinds.begin(), kKinds.end(),
                                   [&](const KindEntry& e) { return start.starts_with(e.magic); });
  return entry == kKinds.end() ? nullptr : entry;
}

class CcgModel : public CorrectionModel {
 public:
  explicit CcgModel(const CcgFile& file)
      : CorrectionModel(TraitsOf(file.GetFileInfo()), korvel::ShapeOf(file.GetFileInfo()).Extent()),
        file_(file) {}

  bool Find(double north, double east, Vector3d& correction) const override {
    correction = {};
    return file_.GetCorrections(north, east, correction);
  }
  bool FindInverse(double north, double east, Vector3d& correction) const override {
    correction = {};
    return file_.GetInverseCorrections(north, east, correction);
  }

 private:
  static Traits TraitsOf(const CcgFileInfo& info) {
    return {ModelKind::CorrectionGrid, info.IsLatLongType(), info.HasXYComponents(),
            info.HasZComponent(), info.correctionType != CorrectionLatLongForward};
  }

  CcgFile file_;
};

class GeoidModel : public CorrectionModel {
 public:
  GeoidModel(const GrdFile& file, const ModelExtent& extent)
      : CorrectionModel({ModelKind::GeoidGrid, IsGeographic(file), false, true, true}, extent),
        file_(file) {}

  bool Find(double north, double east, Vector3d& correction) const override {
    double height = 0.0;
    if (!file_.GetHeight(east, north, &height)) return false;
    correction = {0.0, 0.0, -height};
    return true;
  }
  bool FindInverse(double north, double east, Vector3d& correction) const override {
    return Find(north, east, correction);
  }

 private:
  static bool IsGeographic(const GrdFile& file) {
    return file.GetCoordType() == GrdFile::kGeographic;
  }

  mutable GrdFile file_;  // keeps the cell asked for last
};

class NetworkModel : public CorrectionModel {
 public:
  explicit NetworkModel(std::unique_ptr<const LmvTriadFile> file)
      : CorrectionModel({ModelKind::Network, false, true, false, true}, korvel::ExtentOf(*file)),
        file_(std::move(file)) {}

  bool Find(double north, double east, Vector3d& correction) const override {
    return file_->GetCorrections(north, east, correction);
  }
  bool FindInverse(double north, double east, Vector3d& correction) const override {
    return file_->GetInverseCorrections(north, east, correction);
  }

 private:
  std::unique_ptr<const LmvTriadFile> file_;
};

std::unique_ptr<CorrectionModel> OpenCcg(const std::string& path) {
  CcgFile file;
  if (!file.OpenFile(Widen(path)))
    throw InputError(path + ": can't be read as a correction grid: its version is newer than 5");
  return std::make_unique<CcgModel>(file);
}

std::unique_ptr<CorrectionModel> OpenGeoid(const std::string& path) {
  const korvel::GridShape shape = korvel::ReadGridShape(path);
  GrdFile file;
  if (!file.OpenFile(path.c_str())) throw InputError(path + ": can't be read as a geoid grid");
  return std::make_unique<GeoidModel>(file, shape.Extent());
}

std::unique_ptr<CorrectionModel> OpenNetwork(const std::string& path) {
  return std::make_unique<NetworkModel>(korvel::OpenTriad(path));
}

}  // namespace

namespace korvel {

bool IsModel(const std::string& path) { return FindEntry(path) != nullptr; }

ModelKind FindModelKind(const std::string& path) {
  RequireReadable(path);
  if (const KindEntry* entry = FindEntry(path)) return entry->kind;
  throw InputError(path + ": is no correction grid, no geoid grid and no triangulated network");
}

std::string ModelKindName(ModelKind kind) { return EntryOf(kind).name; }

std::string ModelKindGroup(ModelKind kind) { return EntryOf(kind).group; }

bool ModelExtent::Contains(double north, double east) const {
  return north >= northMin && north <= northMax && east >= eastMin && east <= eastMax;
}

ModelExtent ExtentOf(const LmvTriadFile& network) {
  ValueRange north;
  ValueRange east;
  for (const auto& point : network.GetPoints()) {
    north.Add(point.y);
    east.Add(point.x);
  }
  return {north.least, north.most, east.least, east.most};
}

std::unique_ptr<LmvTriadFile> OpenTriad(const std::string& path) {
  if (FindModelKind(path) != ModelKind::Network)
    throw InputError(path + ": is " + ModelKindName(FindModelKind(path)) +
                     ", not a triangulated network");
  auto file = std::make_unique<LmvTriadFile>();
  if (!file->OpenFile(Widen(path)))
    throw InputError(path + ": can't be read as a triangulated network");
  return file;
}

std::unique_ptr<CorrectionModel> CorrectionModel::Open(const std::string& path) {
  switch (FindModelKind(path)) {
    case ModelKind::CorrectionGrid:
      return OpenCcg(path);
    case ModelKind::GeoidGrid:
      return OpenGeoid(path);
    case ModelKind::Network:
      break;
  }
  return OpenNetwork(path);
}

}  // namespace korvel
