#include "tools/korvel/VerbGroup.h"

CLI::App& korvel::AddVerbGroup(CLI::App& app, const std::string& name, const std::string& what) {
  CLI::App& group = *app.add_subcommand(name, what);
  group.require_subcommand(1);
  group.footer("korvel " + name + " VERB --help tells more of each.");
  return group;
}
