#pragma once

#include <functional>
#include <string>

/// One side of a comparison.
using Work = std::function<void()>;

/// Runs `floor` and `work` in turn `rounds` times, each once before without being timed, and prints
/// the best time of each with their ratio and the bar it should keep below. `cleanUp` follows each
/// run of either, without being timed.
void PrintRatio(
    const std::string& what, double bar, int rounds, const Work& floor, const Work& work,
    const Work& cleanUp = [] {});

/// Resident memory of the process in bytes, after free memory went back to the system.
double ResidentBytes();

/// Keeps the compiler from leaving out what `value` was computed for.
template <class Value>
void Keep(const Value& value) {
  asm volatile("" : : "g"(&value) : "memory");
}
