#pragma once

namespace korvel {

/// The whole program: reads the command line and does what it says.
/// @return an `ExitStatus`
int RunApp(int argc, char** argv);

}  // namespace korvel
