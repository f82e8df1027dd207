#include <iostream>

#include "korvelfile/Version.h"
#include "korvelfile/outside/base/Vector.h"

int main() {
  const Vector toPoint(3, 4);
  std::cout << "KorvelFile " << KorvelFileVersion() << ", distance " << toPoint.GetLength() << '\n';
  return toPoint.GetLength() == 5 ? 0 : 1;
}
