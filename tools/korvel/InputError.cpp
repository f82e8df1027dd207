#include "tools/korvel/InputError.h"

#include <iostream>

#include "tools/korvel/Printable.h"

void korvel::PrintError(const std::string& text) {
  std::cerr << "korvel: " << Printable(text) << std::endl;
}
