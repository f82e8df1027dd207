#pragma once

#include <istream>
#include <ostream>
#include <span>

/// Writes floats, little endian.
void WriteFloats(std::ostream& out, std::span<const float> floats);

/// Reads little-endian floats; those that the stream is too short for keep their values.
void ReadFloats(std::istream& in, std::span<float> floats);
