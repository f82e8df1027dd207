/// @file
/// Which files belong with a given one.
#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"

namespace File::Association {

/// How one file belongs with another.
enum class AssociationType : int {
  SameBasename = 0,  ///< the same name with another extension
};

/// A file that belongs with another one.
struct AssociatedFile {
 public:
  AssociatedFile(const std::string& path, AssociationType type) : path_(path), type_(type) {}

  std::string Path() const { return path_; }      ///< Its full path; it needn't exist.
  AssociationType Type() const { return type_; }  ///< How it belongs.

 private:
  std::string path_;
  AssociationType type_;
};

/// Tells which files belong with those of one kind.
class KORVELFILE_EXPORT IAssociatedFiles {
 public:
  virtual ~IAssociatedFiles();

  /// The files that belong with `path`, whether they exist or not.
  /// @param flag without meaning to the library's own classes
  virtual std::vector<AssociatedFile> GetAssociatedFiles(const std::string& path,
                                                         bool flag) const = 0;
};

}  // namespace File::Association
