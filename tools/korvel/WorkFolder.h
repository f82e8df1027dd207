#pragma once

#include <string>

namespace korvel {

/// A hidden folder beside a file that is to be made, for work that mustn't touch the file before
/// all is well. It is removed with all that it holds.
class WorkFolder {
 public:
  /// @throws InputError if it can't be made
  explicit WorkFolder(const std::string& target);
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  /// The path of `name` within.
  std::string Path(const std::string& name) const;

  /// Makes `name` within lead to the file `source`.
  /// @return the path of `name`
  std::string Link(const std::string& source, const std::string& name) const;

  /// Lets the file `name` take the place of the target.
  /// @throws InputError if that fails
  void MoveToTarget(const std::string& name) const;

 private:
  std::string target_;  ///< with links resolved
  std::string path_;
};

}  // namespace korvel
