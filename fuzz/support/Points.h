/// @file
/// The two ways to read a coordinate file.
#pragma once

#include "fuzz/support/Harness.h"

namespace fuzz {

/// Length of input that shows all there is of fixed columns, in bytes: each line feed makes an
/// item, so that long inputs are slow.
inline constexpr std::size_t kEnoughColumns = 2000;

/// Reads `input` into items, asks them everything, and checks what they write.
/// @param isExact see `CheckRewrite`
void CheckPointReader(std::string_view input, const std::string& name,
                      bool (*isExact)(const std::string& bytes));

/// Reads `input` into the compact store and walks that in every way there is.
void CheckStoreReader(std::string_view input, const std::string& name);

}  // namespace fuzz
