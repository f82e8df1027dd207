/// @file
/// Model files and points for the tests of the verbs.
#pragma once

#include <string>

#include "korvelfile/outside/base/NumberText.h"
#include "tests/tools/korvel/CsvText.h"
#include "tests/tools/korvel/RunKorvel.h"

/// A real grid, or what it is to answer.
inline std::string RealGrid(const std::string& name) {
  return KORVELFILE_TEST_DATA "/grids/" + name;
}

/// A network of one kilometre, whose corners and middle have corrections.
inline const std::string kNetwork = KORVELFILE_GOLDEN "/triad/square.triad";
