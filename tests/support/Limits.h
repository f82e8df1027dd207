/// @file
/// What keeps a process from writing, put back at the end of a test's scope.
#pragma once

#include <csignal>
#include <cstddef>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/Files.h"

/// Writes fail at `bytes` from the start of any file, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::size_t bytes) : formerAction_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit limit{bytes, former_.rlim_max};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) ADD_FAILURE() << "no limit " << bytes;
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, formerAction_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit former_{};
  void (*formerAction_)(int);
};

/// The process has no rights beyond those of an ordinary user, who owns `folder` and its files.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const TempFolder& folder) {
    if (geteuid() != 0) return;
    for (const std::string& name : folder.Names()) Give(folder.Path(name));
    Give(folder.Path(""));
    if (setegid(kNobody) != 0 || seteuid(kNobody) != 0) ADD_FAILURE() << "can't give up root";
    isRoot_ = true;
  }
  ~OrdinaryUser() {
    if (isRoot_ && (seteuid(0) != 0 || setegid(0) != 0)) ADD_FAILURE() << "can't be root again";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr unsigned kNobody = 65534;

  static void Give(const std::string& path) {
    if (chown(path.c_str(), kNobody, kNobody) != 0) ADD_FAILURE() << "can't give away " << path;
  }

  bool isRoot_ = false;
};
