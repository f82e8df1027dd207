// The README says what the code does.

#include <string>

#include <gtest/gtest.h>

#include "tests/tools/korvel/RunKorvel.h"

namespace {

std::string Source(const std::string& path) {
  return ReadBytes(std::string(KORVELFILE_SOURCE) + '/' + path);
}

// The lines of the example between its two marks, without their indentation as a function's body.
std::string Snippet(const std::string& source) {
  const std::size_t begin = source.find('\n', source.find("// README begins")) + 1;
  const std::size_t end = source.rfind('\n', source.find("// README ends")) + 1;
  std::string code;
  for (std::size_t at = begin; at < end;) {
    const std::size_t next = source.find('\n', at) + 1;
    const std::string line = source.substr(at, next - at);
    code += line == "\n" ? line : line.substr(2);
    at = next;
  }
  return code;
}

}  // namespace

TEST(Readme, ExampleIsTheOneThatIsCompiled) {
  const std::string code = Snippet(Source("examples/free_station.cpp"));
  ASSERT_GT(code.size(), 300U);
  EXPECT_NE(Source("README.md").find(code), std::string::npos) << code;
}

TEST(Readme, ExampleGivesWhatIsSaid) {
  const std::string folder = std::string(KORVELFILE_SOURCE) + "/examples/free-station/";
  const ProgramRun run =
      RunProgram(KORVELFILE_EXAMPLE, folder + "job.plm " + folder + "known.geo 2>/dev/null");
  EXPECT_EQ(run.status, 0);
  ASSERT_NE(run.out.find("E 988.7577 N 5032.0106 H 107.0454\n"), std::string::npos) << run.out;
  EXPECT_NE(Source("README.md").find("E 988.7577 N 5032.0106 H 107.0454"), std::string::npos);
}
