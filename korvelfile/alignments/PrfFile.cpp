#include "korvelfile/alignments/PrfFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

#include "korvelfile/alignments/internal/CommaRecord.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/Vector.h"

namespace {

constexpr int kProxyType = 2;
constexpr int kFailure = -9;

// Height in metres from which the end of a curve is looked for upwards and downwards, and which it
// gets if there is none.
constexpr double kNoHeight = -20.0;

int FailedSave(const char* name) {
  _GHAL::SystemMessage("PRF: Can't open prf-file!");
  _GHAL::SystemMessage(name ? name : "");
  return kFailure;
}

// Height at which a curve from `start` reaches the chainage `end`: of the lower half of its circle
// in a sag, of the upper half on a crest.
double EndHeight(const Vector& start, double slope, double radius, double end) {
  const Circle circle(start, std::atan2(slope, 1.0), -radius, 0);
  const Line vertical(Vector(end, kNoHeight), kHalfPi, 1.0);
  Vector a;
  Vector b;
  if (vertical.GetIntersection(circle, a, b))
    return radius > 0.0 ? std::min(a.y, b.y) : std::max(a.y, b.y);
  _GHAL::SystemMessage("PRF:intersection don't exist");
  return kNoHeight;
}

std::shared_ptr<const GeometryInterface> MakeGeometry(const Vector& start, double slope,
                                                      double radius, double length) {
  if (radius == 0.0) return std::make_shared<Line>(start, std::atan(slope), 1.0);
  const double end = start.x + length;
  return std::make_shared<CircleArc>(start, Vector(end, EndHeight(start, slope, radius, end)),
                                     -radius, 0, 0);
}

}  // namespace

// The numbers of a record in the order of the file, with the arrays that keep them. The two cambers
// have none: they are written as 0 and passed over when read.
struct PrfFile::Columns {
  static constexpr std::size_t kCount = 9;
  static constexpr std::array<deprecated::ArrayTemplate<double> PrfFile::*, kCount> kArrays = {
      &PrfFile::section_, &PrfFile::z_, &PrfFile::slope_, &PrfFile::radius_,
      &PrfFile::length_,  nullptr,      nullptr,          &PrfFile::offsL_,
      &PrfFile::offsR_};
  static constexpr std::array<commarecord::NumberFormat, kCount> kFormats = {
      {{12, 4}, {12, 4}, {11, 6}, {12, 4}, {10, 4}, {11, 6}, {11, 6}, {11, 4}, {11, 4}}};

  // Calls `apply` with each array and the place of its number in a record.
  template <class File, class Apply>
  static void ForEach(File& file, Apply apply) {
    for (std::size_t i = 0; i < kCount; ++i)
      if (kArrays[i]) apply(file.*kArrays[i], i);
  }
};

PrfFile::PrfFile() = default;
PrfFile::~PrfFile() = default;
PrfFile::PrfFile(const PrfFile&) = default;
PrfFile& PrfFile::operator=(const PrfFile&) = default;

void* PrfFile::GetGraphicsObject() { return this; }
int PrfFile::GetProxyType() { return kProxyType; }
bool PrfFile::IsForReadOnly() { return false; }

int PrfFile::Open(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kRead, false) != 0) return kFailure;
  const auto append = [this](std::string elemNo, std::span<const double> numbers) {
    elemNo_.Append(std::move(elemNo));
    Columns::ForEach(*this, [&](auto& array, std::size_t i) { array.Append(numbers[i]); });
    const TPrf e = GetAt(section_.GetCount() - 1);
    geometry_.Append(
        MakeGeometry({e.GetSection(), e.GetZ()}, e.GetSlope(), e.GetRadius(), e.GetLength()));
  };
  const bool isWhole =
      commarecord::ReadAll(file, Columns::kCount, commarecord::LastRecord::kWhole, append);
  _FileIO::CloseFile(file);
  if (isWhole) return 0;
  _GHAL::SystemMessage("PRF: Corrupt .prf file!");
  return kFailure;
}

int PrfFile::Save(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kReplace, false) != 0)
    return FailedSave(name);
  WriteAll(file);
  return _FileIO::CloseFile(file) == 0 ? 0 : FailedSave(name);
}

void PrfFile::WriteAll(GeoFile& file) const {
  const int count = section_.GetCount();
  _FileIO::WriteFile(file, commarecord::HeaderRecord(static_cast<std::size_t>(count)));
  std::array<double, Columns::kCount> numbers{};
  for (int i = 0; i < count; ++i) {
    Columns::ForEach(*this, [&](const auto& array, std::size_t n) { numbers[n] = array[i]; });
    _FileIO::WriteFile(file, commarecord::ElementRecord(elemNo_[i], Columns::kFormats, numbers,
                                                        commarecord::End::kComma));
  }
}

void PrfFile::GetTotalElements(int& count) const { count = section_.GetCount(); }

void PrfFile::GetElement(int index, String& elemNo, double& section, double& z, double& slope,
                         double& radius, double& length, double& offsL, double& offsR) const {
  if (!HasElement(index)) return;
  elemNo = elemNo_[index];
  section = section_[index];
  z = z_[index];
  slope = slope_[index];
  radius = radius_[index];
  length = length_[index];
  offsL = offsL_[index];
  offsR = offsR_[index];
}

TPrf PrfFile::GetAt(int index) const {
  TPrf element;
  element.SetSection(section_[index]);
  element.SetZ(z_[index]);
  element.SetSlope(slope_[index]);
  element.SetRadius(radius_[index]);
  element.SetLength(length_[index]);
  element.SetOffsL(offsL_[index]);
  element.SetOffsR(offsR_[index]);
  return element;
}

void PrfFile::SetElement(int index, String elemNo, double section, double z, double slope,
                         double radius, double length, double offsL, double offsR, bool& insert) {
  const int count = section_.GetCount();
  const int place = index > count || (insert && index < 0) ? count : index;
  if (place < 0) return;
  if (insert || place == count) MakeRoom(place);
  insert = false;
  elemNo_[place] = std::move(elemNo);
  section_[place] = section;
  z_[place] = z;
  slope_[place] = slope;
  radius_[place] = radius;
  length_[place] = length;
  offsL_[place] = offsL;
  offsR_[place] = offsR;
}

void PrfFile::MakeRoom(int index) {
  elemNo_.Insert(index, {});
  Columns::ForEach(*this, [&](auto& array, std::size_t) { array.Insert(index, 0.0); });
}

void PrfFile::DeleteElement(int index) {
  if (!HasElement(index)) return;
  elemNo_.Remove(index);
  Columns::ForEach(*this, [&](auto& array, std::size_t) { array.Remove(index); });
}

void PrfFile::Delete() { *this = PrfFile(); }
