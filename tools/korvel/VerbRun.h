#pragma once

#include <functional>
#include <memory>

#include <CLI/CLI.hpp>

namespace korvel {

/// Does what the command line asked for.
/// @return an `ExitStatus`
/// @throws InputError for wrong use or unreadable input
using VerbRun = std::function<int()>;

/// Lets `run` be `perform` with the options of `verb`, once the command line asks for it.
/// @return the options, for the verb's arguments to fill; they live as long as `verb`
template <class Options>
Options& OptionsOf(CLI::App& verb, VerbRun& run, int (*perform)(const Options&)) {
  const auto options = std::make_shared<Options>();
  verb.callback(
      [options, &run, perform] { run = [options, perform] { return perform(*options); }; });
  return *options;
}

}  // namespace korvel
