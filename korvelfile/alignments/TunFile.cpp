#include "korvelfile/alignments/TunFile.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Polyline.h"
#include "korvelfile/outside/model/LineException.h"

namespace {

constexpr int kWrongForm = -9;
constexpr double kNoStation = std::numeric_limits<double>::max();

// A radius as the remark of a point: a number of so many digits, cut at so many characters.
constexpr int kRadiusDigits = 16;
constexpr std::size_t kRadiusSize = 12;
constexpr const char* kCentreCode = "TC";

Model::Coordinate ToModel(const Vector& v) { return {v.y, v.x, 0.0}; }
Vector FromModel(const Model::Coordinate& c) { return {c.X, c.Y}; }

// What `ask` gives, or false if the line model can't answer.
template <class Ask>
bool Try(Ask ask) {
  try {
    return ask();
  } catch (...) {
    return false;
  }
}

std::shared_ptr<GeometryInterface> ToGeometry(const TunElement& e) {
  if (e.Radius == 0.0) return std::make_shared<Line>(e.Start, e.End);
  return std::make_shared<CircleArc>(e.Start, e.End, e.Radius, 0, 0);
}

TunElement FromGeometry(const GeometryInterface& geometry) {
  if (geometry.GetType() == GeometryInterface::kCircleArc) {
    const auto& arc = static_cast<const CircleArc&>(geometry);
    return {arc.GetStartPoint(), arc.GetEndPoint(), arc.GetRadius()};
  }
  const auto& line = static_cast<const Line&>(geometry);
  return {line.GetStart(), line.GetStart() + line.GetVector(), 0.0};
}

std::unique_ptr<PointDataItem> MakeNode(const Vector& position, double radius) {
  const Vector3d at(position.x, position.y, 0.0);
  if (radius == 0.0) return std::make_unique<PointDataItem>(at, "", "", "", "");
  const std::string remark = GeneralText(radius, kRadiusDigits).substr(0, kRadiusSize);
  return std::make_unique<PointDataItem>(at, "", "", "R", remark);
}

std::vector<const PointDataItem*> PointsOf(const PxyCoordinateFile& file) {
  std::vector<const PointDataItem*> points;
  TypedItemCursor<PointDataItem> cursor(file);
  PointDataItem* point = nullptr;
  while (cursor.Next(point) == 0) points.push_back(point);
  return points;
}

void AddNodes(TunFile& outline, const std::vector<const PointDataItem*>& points) {
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const PointDataItem& from = *points[i];
    const PointDataItem& to = *points[i + 1];
    outline.AddElement({{from.x, from.y}, {to.x, to.y}, from.GetRadius()});
    if (from.GetPointCode() == kCentreCode) outline.SetTcIndex(static_cast<int>(i));
  }
}

}  // namespace

TunFile::TunFile(std::shared_ptr<Model::ILineFactory> factory)
    : factory_(std::move(factory)), line_(factory_->CreateLine()) {}

TunFile::~TunFile() = default;
TunFile::TunFile(const TunFile&) = default;
TunFile::TunFile(TunFile&&) noexcept = default;
TunFile& TunFile::operator=(const TunFile&) = default;
TunFile& TunFile::operator=(TunFile&&) noexcept = default;

std::shared_ptr<Model::IHorizontalElementList> TunFile::GetElements() const {
  return line_->GetHorizontalAlignment()->GetElements();
}

void TunFile::AddElement(const TunElement& element) {
  const auto elements = GetElements();
  const double arc = line_->GetEndArc();
  const Model::Coordinate start = ToModel(element.Start);
  const Model::Coordinate end = ToModel(element.End);
  elements->Append(element.Radius == 0.0 ? elements->CreateStraight(start, end, arc)
                                         : elements->CreateArc(start, end, element.Radius, arc),
                   true);
}

void TunFile::Flush() {
  line_ = factory_->CreateLine();
  tcIndex_ = -1;
  tcArcLength_ = 0.0;
}

int TunFile::GetNumNodes() const { return GetElements()->GetElementCount(); }

void TunFile::GetElement(int index, TunElement& element) const {
  Try([&] {
    const auto found = GetElements()->GetElement(index);
    element.Start = FromModel(found->GetStartPoint());
    element.End = FromModel(found->GetEndPoint());
    const auto* const curve = dynamic_cast<const Model::IHorizontalCurve*>(found.get());
    element.Radius = curve ? curve->GetRadius() : 0.0;
    return true;
  });
}

void TunFile::SetTcIndex(int index) {
  tcIndex_ = index;
  tcArcLength_ = 0.0;
  Try([&] {
    tcArcLength_ = GetElements()->GetElement(index)->GetStartArc();
    return true;
  });
}

double TunFile::GetStartArc() const { return line_->GetStartArc(); }
double TunFile::GetEndArc() const { return line_->GetEndArc(); }
double TunFile::GetTotalLength() const { return line_->GetTotalLength(); }

bool TunFile::GetDirAndPosFromArc(double arc, Vector* position, double* direction) const {
  return Try([&] {
    *position = FromModel(line_->PointAt(arc, 0.0));
    *direction = line_->DirectionAt(arc);
    return true;
  });
}

bool TunFile::GetSideAndHeight(double arc, double offset, double& side, double& height) const {
  return Try([&] {
    const Vector point = FromModel(line_->PointAt(arc, -offset));
    side = point.x;
    height = point.y;
    return true;
  });
}

// The line model counts offsets to the other side.
bool TunFile::FillIn(const Model::LineStation& station, double& offset, double& arcLength) const {
  offset = -station.Offset;
  arcLength = station.Arc - tcArcLength_;
  return true;
}

bool TunFile::GetTunOffsAndArcLen(const double& side, const double& height, double& offset,
                                  double& arcLength) const {
  const Model::Coordinate point{height, side, 0.0};
  if (Try([&] { return FillIn(line_->Station(point), offset, arcLength); })) return true;
  offset = arcLength = kNoStation;
  return false;
}

bool TunFile::GetTunOffsAndArcLenAtPreferredElement(const double& side, const double& height,
                                                    const double& preferredArc, double& offset,
                                                    double& arcLength) const {
  const Model::Coordinate point{height, side, 0.0};
  Model::LineStation station;
  const bool isOnIt = Try(
      [&]() -> bool { return GetElements()->ElementAt(preferredArc)->Station(point, station); });
  return isOnIt ? FillIn(station, offset, arcLength)
                : GetTunOffsAndArcLen(side, height, offset, arcLength);
}

// The elements are taken first, for `result` may be this outline.
bool TunFile::GetOffsetSection(double offset, TunFile& result) const {
  std::vector<std::shared_ptr<GeometryInterface>> chain;
  for (int i = 0; i < GetNumNodes(); ++i) {
    TunElement element;
    GetElement(i, element);
    chain.push_back(ToGeometry(element));
  }
  result.Flush();
  bool isParallel = true;
  const auto parallel = Polyline::GetParallel(std::move(chain), -offset, isParallel);
  const bool isBuilt = Try([&] {
    for (const auto& piece : parallel) result.AddElement(FromGeometry(*piece));
    return isParallel;
  });
  if (!isBuilt) result.Flush();
  return isBuilt;
}

int TunFile::Open(const char* name) {
  PxyCoordinateFile file(false);
  file.ChooseFile(name);
  line_ = factory_->CreateLine();
  int result = file.UseCollector();
  if (result != 0) return result;
  try {
    AddNodes(*this, PointsOf(file));
  } catch (const Model::LineException& fault) {
    _GHAL::SystemMessage(fault.what());
    result = kWrongForm;
  }
  file.UnUseCollector();
  return result;
}

// The file is made in memory and written once, so that the old one stays if that fails.
int TunFile::Save(const char* name) {
  PxyCoordinateFile file(false);
  file.ChooseFile(name);
  file.InitAndUseCollectorWithoutFuckingDisk();
  TunElement element;
  for (int i = 0; i < GetNumNodes(); ++i) {
    GetElement(i, element);
    file.InsertPoint(MakeNode(element.Start, element.Radius));
  }
  if (GetNumNodes() > 0) file.InsertPoint(MakeNode(element.End, 0.0));
  file.FlagDirty();
  const int result = file.SaveCollector();
  file.UnUseCollector();
  return result;
}
