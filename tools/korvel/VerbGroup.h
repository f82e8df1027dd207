#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace korvel {

/// Adds a verb that has verbs of its own.
/// @param what what it does, in its line of the help
CLI::App& AddVerbGroup(CLI::App& app, const std::string& name, const std::string& what);

}  // namespace korvel
