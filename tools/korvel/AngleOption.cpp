#include "tools/korvel/AngleOption.h"

#include <string>

#include <CLI/CLI.hpp>

void korvel::AddAnglesOption(CLI::App& verb, AngleUnit& unit, const char* what) {
  verb.add_option_function<std::string>(
          "--angles", [&unit](const std::string& name) { unit = FindAngleUnit(name); }, what)
      ->check(CLI::IsMember(AngleUnitNames()).description(""))
      ->type_name("gon|deg|rad")
      ->default_str(std::string(unit.name));
}
