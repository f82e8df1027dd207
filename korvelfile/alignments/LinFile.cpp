#include "korvelfile/alignments/LinFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "korvelfile/alignments/internal/CommaRecord.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/PolarVector.h"

namespace {

constexpr int kProxyType = 1;
constexpr int kFailure = -9;

int FailedSave(const char* name) {
  _GHAL::SystemMessage("can't open lin-file!");
  _GHAL::SystemMessage(name ? name : "");
  return kFailure;
}

template <class T>
auto At(std::vector<T>& values, std::size_t index) {
  return values.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

// The numbers of a record in the order of the file, with the arrays that keep them.
struct LinFile::Columns {
  static constexpr std::size_t kCount = 8;
  static constexpr std::array<std::vector<double> LinFile::*, kCount> kArrays = {
      &LinFile::y_,       &LinFile::x_,         &LinFile::section_, &LinFile::radius_,
      &LinFile::bearing_, &LinFile::parameter_, &LinFile::eRadius_, &LinFile::length_};
  static constexpr std::array<commarecord::NumberFormat, kCount> kFormats = {
      {{13, 5}, {13, 5}, {13, 5}, {13, 5}, {10, 6}, {13, 5}, {13, 5}, {13, 5}}};
};

LinFile::LinFile() = default;
LinFile::~LinFile() = default;
LinFile::LinFile(const LinFile&) = default;
LinFile& LinFile::operator=(const LinFile&) = default;

void* LinFile::GetGraphicsObject() { return this; }
int LinFile::GetProxyType() { return kProxyType; }
bool LinFile::IsForReadOnly() { return false; }

int LinFile::Open(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kRead, false) != 0) return kFailure;
  const auto append = [this](std::string elemNo, std::span<const double> numbers) {
    elemNo_.push_back(std::move(elemNo));
    for (std::size_t i = 0; i < Columns::kCount; ++i)
      (this->*Columns::kArrays[i]).push_back(numbers[i]);
    if (length_.back() == 0.0) radius_.back() = parameter_.back() = 0.0;
  };
  const bool isWhole =
      commarecord::ReadAll(file, Columns::kCount, commarecord::LastRecord::kMayBeShort, append);
  _FileIO::CloseFile(file);
  if (isWhole) return 0;
  _GHAL::SystemMessage("Error .lin file corrupted!");
  return kFailure;
}

int LinFile::Save(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kReplace, false) != 0)
    return FailedSave(name);
  WriteAll(file);
  return _FileIO::CloseFile(file) == 0 ? 0 : FailedSave(name);
}

void LinFile::WriteAll(GeoFile& file) const {
  _FileIO::WriteFile(file, commarecord::HeaderRecord(GetTotalElements()));
  std::array<double, Columns::kCount> numbers;
  for (std::size_t i = 0; i < GetTotalElements(); ++i) {
    for (std::size_t n = 0; n < Columns::kCount; ++n) numbers[n] = (this->*Columns::kArrays[n])[i];
    _FileIO::WriteFile(file, commarecord::ElementRecord(elemNo_[i], Columns::kFormats, numbers,
                                                        commarecord::End::kNothing));
  }
}

std::shared_ptr<TLin> LinFile::GetElement(std::size_t index) const {
  if (index >= GetTotalElements()) return nullptr;
  return std::make_shared<TLin>(GetAt(index));
}

void LinFile::GetElement(std::size_t index, std::string& elemNo, double& y, double& x,
                         double& section, double& radius, double& bearing, double& parameter,
                         double& eRadius, double& length) const {
  if (index >= GetTotalElements()) return;
  elemNo = elemNo_[index];
  y = y_[index];
  x = x_[index];
  section = section_[index];
  radius = radius_[index];
  bearing = bearing_[index];
  parameter = parameter_[index];
  eRadius = eRadius_[index];
  length = length_[index];
}

TLin LinFile::GetAt(std::size_t index) const {
  TLin element;
  element.SetElemNo(elemNo_[index]);
  element.SetX(x_[index]);
  element.SetY(y_[index]);
  element.SetSection(section_[index]);
  element.SetRadius(radius_[index]);
  element.SetBearing(bearing_[index]);
  element.SetParameter(parameter_[index]);
  element.SetERadius(eRadius_[index]);
  element.SetLength(length_[index]);
  return element;
}

void LinFile::SetElement(std::size_t index, const std::string& elemNo, double y, double x,
                         double section, double radius, double bearing, double parameter,
                         double eRadius, double length, bool& insert) {
  const std::size_t place = std::min(index, GetTotalElements());
  if (insert || place == GetTotalElements()) MakeRoom(place);
  insert = false;
  const std::array<double, Columns::kCount> numbers = {y,       x,         section, radius,
                                                       bearing, parameter, eRadius, length};
  elemNo_[place] = elemNo;
  for (std::size_t i = 0; i < Columns::kCount; ++i)
    (this->*Columns::kArrays[i])[place] = numbers[i];
}

void LinFile::MakeRoom(std::size_t index) {
  elemNo_.emplace(At(elemNo_, index));
  for (const auto array : Columns::kArrays) {
    auto& values = this->*array;
    values.emplace(At(values, index));
  }
}

void LinFile::DeleteElement(std::size_t index) {
  if (index >= GetTotalElements()) return;
  elemNo_.erase(At(elemNo_, index));
  for (const auto array : Columns::kArrays) {
    auto& values = this->*array;
    values.erase(At(values, index));
  }
}

double LinFile::GetStartSection() const { return section_.empty() ? 0.0 : section_.front(); }

double LinFile::GetStopSection() const {
  return section_.empty() ? 0.0 : section_.back() + length_.back();
}

Vector LinFile::FindEndPosOfElement(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= GetTotalElements()) return {};
  const TLin element = GetAt(static_cast<std::size_t>(index));
  const Vector start(element.GetX(), element.GetY());
  const double direction = NormalizeAngle(GonToBearing(element.GetBearing()), kTwoPi, 0.0);
  if (element.GetParameter() != 0.0) {
    Clothoid clothoid;
    clothoid.SetWithParameter(start, direction, element.GetParameter(), element.GetRadius(),
                              element.GetERadius());
    return clothoid.CalcEndPoint();
  }
  // Of radius 0 it is a straight.
  return CircleArc(start, element.GetRadius(), direction, element.GetLength(), 0, 0).GetEndPoint();
}
