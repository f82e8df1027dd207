#include "korvelfile/coordinates/CompositeFile.h"

#include <utility>

namespace FileFactoryBase {

IFileBaseVisitor::~IFileBaseVisitor() = default;
FileBase::~FileBase() = default;
CompositeFileBase::~CompositeFileBase() = default;

CompositeFile::CompositeFile(std::shared_ptr<FileBase> file) : file_(std::move(file)) {}
CompositeFile::~CompositeFile() = default;
CompositeFile::CompositeFile(const CompositeFile&) = default;
CompositeFile::CompositeFile(CompositeFile&&) noexcept = default;
CompositeFile& CompositeFile::operator=(const CompositeFile&) = default;
CompositeFile& CompositeFile::operator=(CompositeFile&&) noexcept = default;

std::shared_ptr<FileBase> CompositeFile::GetFile() const { return file_; }

std::vector<std::shared_ptr<FileBase>>& CompositeFile::GetFileBaseCollection() {
  return collection_;
}

const std::vector<std::shared_ptr<FileBase>>& CompositeFile::GetFileBaseCollection() const {
  return collection_;
}

void CompositeFile::WriteToFile(const std::wstring& path) const { file_->WriteToFile(path); }
std::wstring CompositeFile::GetFilename() const { return file_->GetFilename(); }
void CompositeFile::SetFilename(const std::wstring& name) { file_->SetFilename(name); }
bool CompositeFile::CanChangeFilename() const { return file_->CanChangeFilename(); }
bool CompositeFile::FilenameSpecified() const { return file_->FilenameSpecified(); }

void CompositeFile::Accept(std::shared_ptr<IFileBaseVisitor> visitor) {
  visitor->VisitComposite(shared_from_this());
}

}  // namespace FileFactoryBase
