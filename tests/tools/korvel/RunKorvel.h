/// @file
/// Runs programs of the project as a user does, and keeps what they say.
#pragma once

#include <cstdlib>
#include <string>
#include <utility>

#include <nlohmann/json.hpp>
#include <sys/wait.h>

#include "tests/support/Files.h"

struct ProgramRun {
  int status = -1;
  std::string out;
  std::string error;

  /// Standard output as JSON; discarded where it is something else.
  nlohmann::json Json() const { return nlohmann::json::parse(out, nullptr, false); }
};

/// Runs `program` in a shell.
/// @param arguments as on a command line
inline ProgramRun RunProgram(const std::string& program, const std::string& arguments) {
  const TempFolder folder;
  const std::string command =
      '"' + program + "\" " + arguments + " >" + folder.Path("out") + " 2>" + folder.Path("error");
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBytes(folder.Path("out")),
          ReadBytes(folder.Path("error"))};
}

inline ProgramRun RunKorvel(const std::string& arguments) {
  return RunProgram(KORVELFILE_KORVEL, arguments);
}

/// Runs korvel, which must do it all.
inline ProgramRun RunWell(const std::string& arguments) {
  ProgramRun run = RunKorvel(arguments);
  EXPECT_EQ(run.status, 0) << arguments << '\n' << run.error;
  return run;
}

/// Expects that korvel ends with `status` and tells of `fault`.
inline ProgramRun ExpectFault(const std::string& arguments, const std::string& fault,
                              int status = 2) {
  ProgramRun run = RunKorvel(arguments);
  EXPECT_EQ(run.status, status) << arguments << '\n' << run.error;
  EXPECT_NE(run.error.find(fault), std::string::npos) << arguments << '\n' << run.error;
  return run;
}

/// Expects a plot of each kind of file from these arguments with the file's name behind them.
/// @return the bytes of the PNG file
inline std::string ExpectPlots(const std::string& arguments) {
  const TempFolder folder;
  for (const auto& [name, start] :
       {std::pair{"p.svg", "<?xml"}, {"p.PNG", "\x89PNG"}, {"p.pdf", "%PDF"}}) {
    RunWell(arguments + ' ' + folder.Path(name));
    const std::string bytes = ReadBytes(folder.Path(name));
    EXPECT_TRUE(bytes.starts_with(start)) << name;
    EXPECT_GT(bytes.size(), 5000U) << name;
  }
  return ReadBytes(folder.Path("p.PNG"));
}

/// The folder of a real job, with a "/" at its end.
inline std::string JobFolder(const std::string& job) {
  return KORVELFILE_TEST_DATA "/jobs/" + job + '/';
}

/// Arguments that name a job's own files.
inline std::string StationOf(const std::string& job) {
  return "station " + JobFolder(job) + "job.plm --known " + JobFolder(job) + "known.geo ";
}
