/// @file
/// File objects as an application's file factory holds them, whatever stands behind them.
#pragma once

#include <memory>
#include <string>

#include "korvelfile/Export.h"

namespace FileFactoryBase {

class CompositeFile;
struct FileBase;

/// What an application does with file objects, by their kind. Held by a `std::shared_ptr`.
struct KORVELFILE_EXPORT IFileBaseVisitor {
  virtual ~IFileBaseVisitor();

  /// Called by a file object that stands for itself alone.
  virtual void VisitFile(std::shared_ptr<FileBase> file) = 0;

  /// Called by a composite. It doesn't hand over its files: to walk them is up to the visitor.
  virtual void VisitComposite(std::shared_ptr<CompositeFile> composite) = 0;
};

/// A file object. Applications implement it; failures are theirs to define.
struct KORVELFILE_EXPORT FileBase {
  virtual ~FileBase();

  /// Writes the object to a file.
  virtual void WriteToFile(const std::wstring& path) const = 0;

  virtual std::wstring GetFilename() const = 0;            ///< The file's name.
  virtual void SetFilename(const std::wstring& name) = 0;  ///< Names the file.
  virtual bool CanChangeFilename() const = 0;              ///< Whether the name may change.
  virtual bool FilenameSpecified() const = 0;              ///< Whether a name has been given.

  /// Hands the object to the visitor.
  virtual void Accept(std::shared_ptr<IFileBaseVisitor> visitor) = 0;
};

}  // namespace FileFactoryBase
