#include "korvelfile/data/FileHeaderBase.h"

#include <cmath>
#include <limits>
#include <string_view>

#include "korvelfile/data/FileHeaderFields.h"
#include "korvelfile/data/FileInfoBase.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr std::string_view kMagic = "KVT Object Text v";
constexpr double kMajorLimit = 0x8000;  // the major number has 15 bits beside the sign

std::string VersionText(int version) {
  const auto word = static_cast<unsigned>(version);
  return std::string(kMagic) + SF::dformat("%u.%.2u", word >> 16U, word & 0xFFFFU);
}

bool HasMagic(std::string_view text) { return EqualNoCase(text.substr(0, kMagic.size()), kMagic); }

// 0 where no version stands. One that is too large for a number is newer than all there are.
int ParseVersion(std::string_view text) {
  const double number = ParseDouble(text);
  if (!(number > 0.0)) return 0;
  if (number >= kMajorLimit) return std::numeric_limits<int>::max();
  const double major = std::floor(number);
  // The addend lies slightly above one half, as decimal fractions lie slightly beside their value.
  const double minor = std::floor((number - major) * 100 + 0.50000000001);
  return (static_cast<int>(major) << 16) | static_cast<int>(minor);
}

}  // namespace

void FileHeaderBase::SetFileVersion(int version) {
  version_ = version;
  const std::wstring application =
      _GHAL::GetProductName() + L" version " + _GHAL::GetProductVersion();
  SetInfo(FileHeaderFields::szFileInfoApplication, Narrow(application));
  SetInfo(FileHeaderFields::szFileInfoSerialNo, Narrow(_GHAL::GetProductSerial()));
  SetInfo(FileHeaderFields::szFileInfoAuthor, Narrow(_GHAL::GetUsername()));
  SetInfo(FileHeaderFields::szFileInfoCompany, Narrow(_GHAL::GetUserCompany()));
}

std::string FileHeaderBase::GetInfo(const std::string& name) const {
  const FileInfoBase* info = FindInfo(name);
  return info ? info->GetValue() : std::string();
}

std::string FileHeaderBase::GetDescription() const {
  return GetInfo(FileHeaderFields::szFileInfoDescription);
}

void FileHeaderBase::SetDescription(const std::string& description) {
  SetInfo(FileHeaderFields::szFileInfoDescription, description);
}

void FileHeaderBase::Swap(FileHeaderBase& other) {
  std::swap(version_, other.version_);
  fileType_.swap(other.fileType_);
}

void FileHeaderBase::Stream(DataStream& stream, int /*version*/) {
  std::string magic;
  if (stream.IsStoring()) {
    if (version_ == 0) {
      _GHAL::SystemMessage("File version must be set before streaming!");
    }
    magic = VersionText(version_);
  }
  stream.Stream(magic);
  if (!stream.IsStoring()) {
    version_ = HasMagic(magic) ? ParseVersion(std::string_view(magic).substr(kMagic.size())) : 0;
    if (!HasMagic(magic)) {
      _GHAL::SystemMessage("No valid version in file!");
    }
  }
  stream.Stream(fileType_);
}
