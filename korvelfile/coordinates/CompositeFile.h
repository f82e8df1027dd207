#pragma once

#include <memory>
#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/FileBase.h"

namespace FileFactoryBase {

/// A file object made of a main file and further ones.
struct KORVELFILE_EXPORT CompositeFileBase : FileBase {
  ~CompositeFileBase() override;

  virtual std::shared_ptr<FileBase> GetFile() const = 0;  ///< The main file.

  /// The further files, for change and for reading.
  /// @{
  virtual std::vector<std::shared_ptr<FileBase>>& GetFileBaseCollection() = 0;
  virtual const std::vector<std::shared_ptr<FileBase>>& GetFileBaseCollection() const = 0;
  /// @}
};

/// A composite that passes for its main file: everything but `Accept` is asked of that alone, so
/// that writing a composite writes its main file only.
///
/// Copies share the files. Used through `FileBase`, held by a `std::shared_ptr`: without one
/// `Accept` throws `std::bad_weak_ptr`. One that was moved from may only be assigned or destroyed.
class KORVELFILE_EXPORT CompositeFile : public CompositeFileBase,
                                        public std::enable_shared_from_this<CompositeFile> {
 public:
  /// Of a main file, which isn't null, and no further ones.
  explicit CompositeFile(std::shared_ptr<FileBase> file);
  ~CompositeFile() override;
  CompositeFile(const CompositeFile&);
  CompositeFile(CompositeFile&&) noexcept;
  CompositeFile& operator=(const CompositeFile&);
  CompositeFile& operator=(CompositeFile&&) noexcept;

  std::shared_ptr<FileBase> GetFile() const override;
  std::vector<std::shared_ptr<FileBase>>& GetFileBaseCollection() override;
  const std::vector<std::shared_ptr<FileBase>>& GetFileBaseCollection() const override;

 private:
  void WriteToFile(const std::wstring& path) const override;
  std::wstring GetFilename() const override;
  void SetFilename(const std::wstring& name) override;
  bool CanChangeFilename() const override;
  bool FilenameSpecified() const override;
  void Accept(std::shared_ptr<IFileBaseVisitor> visitor) override;

  std::shared_ptr<FileBase> file_;
  std::vector<std::shared_ptr<FileBase>> collection_;
};

}  // namespace FileFactoryBase
