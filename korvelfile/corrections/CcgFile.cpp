#include "korvelfile/corrections/CcgFile.h"

#include <array>
#include <cstdint>

#include "korvelfile/corrections/internal/CcgHeader.h"
#include "korvelfile/corrections/internal/GridReader.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr std::uint8_t kOldestDataOffset = 81;

using HeaderBytes = std::array<unsigned char, kCcgHeaderRoom>;

// Reads the start of a file; zeros stand for what it is too short for.
bool ReadStart(const std::string& path, HeaderBytes& bytes) {
  constexpr int kEndWithin = -2;
  bytes.fill(0);
  GeoFile file;
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, false) != 0) return false;
  const int result = _FileIO::ReadFile(file, bytes.data(), bytes.size());
  return result == 0 || result == kEndWithin;
}

}  // namespace

CcgFile::CcgFile() : reader_(std::make_unique<GridReader>()) {}
CcgFile::~CcgFile() = default;

CcgFile::CcgFile(const CcgFile& other) : CcgFile() { *this = other; }

CcgFile& CcgFile::operator=(const CcgFile& other) {
  if (this == &other) return *this;
  info_ = other.info_;
  tolerance_ = other.tolerance_;
  cachedRow_ = other.cachedRow_;
  cachedColumn_ = other.cachedColumn_;
  needsFourNodes_ = other.needsFourNodes_;
  stencil_ = other.stencil_;
  reader_->Forget();
  return *this;
}

bool CcgFile::OpenFile(const std::wstring& name) { return ReadHeader(Narrow(name)); }

Vector3d& CcgFile::GetApproxCorrections() { return info_.approxCorrections; }

const CcgFileInfo& CcgFile::GetFileInfo() const { return info_; }

// A header that can't be read leaves no rows and columns of another file behind.
bool CcgFile::ReadHeader(const std::string& name) {
  DropCache();
  const Vector3d approxCorrections = info_.approxCorrections;
  info_ = CcgFileInfo();
  info_.fileName = name;
  info_.dataOffset = kOldestDataOffset;
  info_.approxCorrections = approxCorrections;
  HeaderBytes bytes;
  if (!ReadStart(name, bytes) || !DecodeCcgHeader(bytes, info_)) return false;
  info_.DeriveRowsAndColumns();
  return true;
}

// What the reader remembers of the file may be out of date too.
void CcgFile::DropCache() {
  cachedRow_ = cachedColumn_ = -1;
  reader_->Forget();
}
