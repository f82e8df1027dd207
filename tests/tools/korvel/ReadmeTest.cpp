// The README says what the code does.

#include <regex>
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
  const std::regex indentation("(^|\n)  ");
  return std::regex_replace(source.substr(begin, end - begin), indentation, "$1");
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
