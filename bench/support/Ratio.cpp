#include "support/Ratio.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <limits>

#include <malloc.h>
#include <unistd.h>

namespace {

double Seconds(const Work& work, const Work& cleanUp) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const auto end = std::chrono::steady_clock::now();
  cleanUp();
  return std::chrono::duration<double>(end - start).count();
}

}  // namespace

void PrintRatio(const std::string& what, double bar, int rounds, const Work& floor,
                const Work& work, const Work& cleanUp) {
  Seconds(floor, cleanUp);
  Seconds(work, cleanUp);
  double floorBest = std::numeric_limits<double>::max();
  double workBest = floorBest;
  for (int i = 0; i < rounds; ++i) {
    floorBest = std::min(floorBest, Seconds(floor, cleanUp));
    workBest = std::min(workBest, Seconds(work, cleanUp));
  }
  const double ratio = workBest / floorBest;
  std::printf("%-44s floor %8.2f ms  work %8.2f ms  ratio %5.2f  bar %4.2f  %s\n", what.c_str(),
              floorBest * 1e3, workBest * 1e3, ratio, bar, ratio <= bar ? "ok" : "ABOVE");
  std::fflush(stdout);
}

double ResidentBytes() {
  malloc_trim(0);
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}
