#include <gtest/gtest.h>

#include "korvelfile/outside/base/FilePath.h"

namespace {

constexpr struct {
  const char* path;
  const char* basename;
  const char* extension;
} kPaths[] = {
    {"/home/a.b/job.geo", "job", "geo"},
    {"job.tar.gz", "job.tar", "gz"},
    {"/home/a.b/job", "job", ""},
    {".geo", "", "geo"},
    {"C:\\jobs\\a.plm", "C:\\jobs\\a", "plm"},
    {"/home/job.", "job.", ""},
    {"..", "..", ""},
    {"/", "", ""},
    {"", "", ""},
};

TEST(FilePath, IsTakenApartAndPutTogether) {
  for (const auto& c : kPaths) {
    const Korvel::FilePathT path(c.path);
    EXPECT_EQ(path.GetBasename(), c.basename) << c.path;
    EXPECT_EQ(path.GetExtension(), c.extension) << c.path;
    EXPECT_EQ(path.GetFullpath(), c.path);
  }
}

TEST(FilePath, PartsAreReplaced) {
  Korvel::FilePathT path("/home/a.b/job.geo");
  path.SetBasename("new");
  path.SetExtension("plm");
  EXPECT_EQ(path.GetFullpath(), "/home/a.b/new.plm");
  path.SetExtension("");
  EXPECT_EQ(path.GetFullpath(), "/home/a.b/new");
}

}  // namespace
