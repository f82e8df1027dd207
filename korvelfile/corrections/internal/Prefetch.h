#pragma once

#include <cstddef>

/// How many elements ahead of their use a loop asks for memory that it reads in random order.
inline constexpr std::size_t kPrefetchDistance = 8;

/// Asks the processor for the memory at `address`, so that a use shortly after needn't wait for it.
///
/// Any address will do; nothing changes but the time.
inline void Prefetch([[maybe_unused]] const void* address) {
#if defined(__GNUC__)
  __builtin_prefetch(address);
#endif
}
