#include "tools/korvel/InputError.h"

#include <iostream>
#include <sstream>

#include "tools/korvel/Printable.h"

void korvel::PrintError(const std::string& text) {
  std::istringstream lines(Printable(text));
  for (std::string line; std::getline(lines, line);) std::cerr << "korvel: " << line << '\n';
  std::cerr.flush();
}
