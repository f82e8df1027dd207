#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "korvelfile/outside/base/FileReplacement.h"
#include "tests/support/Files.h"
#include "tests/support/Limits.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} << 10U;

class FileReplacementTest : public testing::Test {
 protected:
  bool Replace(const std::string& path, std::string_view bytes) {
    FileReplacement file;
    return file.Open(path) && file.Write(bytes.data(), bytes.size()) && file.Commit();
  }

  fs::perms PermissionsOf(const std::string& path) { return fs::status(path).permissions(); }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
};

TEST_F(FileReplacementTest, TheOldFileStaysUntilTheCommit) {
  WriteBytes(path_, "old");
  FileReplacement file;
  ASSERT_TRUE(file.Open(path_));
  const std::string bytes(3 * kBufferSize, 'n');
  ASSERT_TRUE(file.Write(bytes.data(), bytes.size()));
  EXPECT_EQ(ReadBytes(path_), "old");
  ASSERT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(path_), bytes);
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"job.geo"});
}

TEST_F(FileReplacementTest, BytesInPiecesOfAnySize) {
  std::string expected;
  FileReplacement file;
  ASSERT_TRUE(file.Open(path_));
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kBufferSize - 1, kBufferSize,
                                 kBufferSize + 1, std::size_t{7}, 3 * kBufferSize}) {
    const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
    ASSERT_TRUE(file.Write(piece.data(), piece.size()));
    expected += piece;
  }
  ASSERT_TRUE(file.Commit());
  EXPECT_EQ(ReadBytes(path_), expected);
}

TEST_F(FileReplacementTest, WithoutACommitNothingIsLeft) {
  for (const bool exists : {false, true}) {
    if (exists) WriteBytes(path_, "old");
    {
      FileReplacement file;
      ASSERT_TRUE(file.Open(path_));
      ASSERT_TRUE(file.Write("new", 3));
    }
    EXPECT_EQ(folder_.Names().size(), exists ? 1U : 0U);
  }
  EXPECT_EQ(ReadBytes(path_), "old");
}

TEST_F(FileReplacementTest, PermissionsAreKept) {
  WriteBytes(path_, "old");
  for (const mode_t mode : {0600U, 0640U, 0666U, 0755U, 02755U}) {
    ASSERT_EQ(chmod(path_.c_str(), mode), 0);
    ASSERT_TRUE(Replace(path_, "new"));
    EXPECT_EQ(PermissionsOf(path_), fs::perms(mode));
  }
}

TEST_F(FileReplacementTest, TheOwnerIsKeptAsFarAsThatIsAllowed) {
  WriteBytes(path_, "old");
  const uid_t owner = geteuid() == 0 ? 4711 : geteuid();
  const gid_t group = geteuid() == 0 ? 4712 : getegid();
  ASSERT_EQ(chown(path_.c_str(), owner, group), 0);
  ASSERT_TRUE(Replace(path_, "new"));
  struct stat status {};
  ASSERT_EQ(stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, owner);
  EXPECT_EQ(status.st_gid, group);
}

TEST_F(FileReplacementTest, ANewFileFollowsTheMask) {
  const mode_t before = umask(027);
  EXPECT_TRUE(Replace(path_, "new"));
  umask(before);
  EXPECT_EQ(PermissionsOf(path_), fs::perms(0640));
}

TEST_F(FileReplacementTest, LinksStayAndTheirTargetIsReplaced) {
  fs::create_directories(folder_.Path("far/away"));
  WriteBytes(folder_.Path("far/away/target.geo"), "old");
  fs::create_symlink("away/target.geo", folder_.Path("far/middle"));
  fs::create_symlink("far/middle", path_);
  ASSERT_TRUE(Replace(path_, "new"));
  EXPECT_EQ(fs::read_symlink(path_), "far/middle");
  EXPECT_EQ(fs::read_symlink(folder_.Path("far/middle")), "away/target.geo");
  EXPECT_EQ(ReadBytes(folder_.Path("far/away/target.geo")), "new");
  EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder_.Path("far/away/target.geo"))));
}

TEST_F(FileReplacementTest, OtherNamesOfTheOldFileKeepIt) {
  WriteBytes(path_, "old");
  fs::create_hard_link(path_, folder_.Path("backup.geo"));
  ASSERT_TRUE(Replace(path_, "new"));
  EXPECT_EQ(ReadBytes(folder_.Path("backup.geo")), "old");
}

TEST_F(FileReplacementTest, TheLongestNameThereIs) {
  const std::string path = folder_.Path(std::string(251, 'n') + ".geo");
  ASSERT_TRUE(Replace(path, "old"));
  ASSERT_TRUE(Replace(path, "new"));
  EXPECT_EQ(ReadBytes(path), "new");
}

TEST_F(FileReplacementTest, WhatCannotBeWrittenFailsAtOpen) {
  WriteBytes(path_, "old");
  fs::create_symlink("loop", folder_.Path("loop"));
  for (const std::string& path :
       {std::string(), folder_.Path(""), folder_.Path("missing/job.geo"), path_ + "/x.geo",
        folder_.Path("loop"), folder_.Path(std::string(300, 'n')), std::string("/proc/job.geo")}) {
    EXPECT_FALSE(FileReplacement().Open(path)) << path;
  }
  EXPECT_EQ(ReadBytes(path_), "old");
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"job.geo", "loop"}));
}

TEST_F(FileReplacementTest, RightsOfTheFileAndItsFolderCount) {
  WriteBytes(path_, "old");
  const OrdinaryUser user(folder_);
  ASSERT_TRUE(Replace(path_, "new"));
  fs::permissions(path_, fs::perms(0444));
  EXPECT_FALSE(FileReplacement().Open(path_));
  fs::permissions(path_, fs::perms(0644));
  fs::permissions(folder_.Path(""), fs::perms(0555));
  EXPECT_FALSE(FileReplacement().Open(path_));
  EXPECT_FALSE(FileReplacement().Open(folder_.Path("new.geo")));
  EXPECT_EQ(ReadBytes(path_), "new");
  fs::permissions(folder_.Path(""), fs::perms(0755));
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"job.geo"});
}

TEST_F(FileReplacementTest, AFailedWriteSticks) {
  WriteBytes(path_, "old");
  for (const std::size_t limit : {std::size_t{0}, std::size_t{1}, kBufferSize, 3 * kBufferSize}) {
    const FileSizeLimit limited(limit);
    FileReplacement file;
    ASSERT_TRUE(file.Open(path_));
    const std::string bytes(2 * kBufferSize, 'n');
    file.Write(bytes.data(), bytes.size());
    file.Write(bytes.data(), bytes.size());
    EXPECT_TRUE(file.HasFailed()) << limit;
    EXPECT_FALSE(file.Write("x", 1)) << limit;
    EXPECT_FALSE(file.Commit()) << limit;
  }
  EXPECT_EQ(ReadBytes(path_), "old");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"job.geo"});
}

TEST_F(FileReplacementTest, ATargetThatBecameAFolderIsAFailure) {
  FileReplacement file;
  ASSERT_TRUE(file.Open(path_));
  ASSERT_TRUE(file.Write("new", 3));
  fs::create_directory(path_);
  EXPECT_FALSE(file.Commit());
  EXPECT_TRUE(fs::is_directory(path_));
}

TEST_F(FileReplacementTest, ADeviceIsWrittenDirectly) {
  fs::create_symlink("/dev/full", folder_.Path("full"));
  EXPECT_FALSE(Replace(folder_.Path("full"), "new"));
  fs::create_symlink("/dev/null", folder_.Path("null"));
  EXPECT_TRUE(Replace(folder_.Path("null"), "new"));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"full", "null"}));
}

TEST_F(FileReplacementTest, ANamedPipeIsWrittenDirectly) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  const int reader = open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  EXPECT_TRUE(Replace(path_, "through the pipe"));
  char bytes[64];
  const ssize_t count = read(reader, bytes, sizeof bytes);
  close(reader);
  ASSERT_GT(count, 0);
  EXPECT_EQ(std::string_view(bytes, static_cast<std::size_t>(count)), "through the pipe");
  EXPECT_TRUE(fs::is_fifo(path_));
}

}  // namespace
