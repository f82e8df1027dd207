#pragma once

#include <cstdint>

#include "korvelfile/outside/base/Export.h"

class GeoMutex;

/// Services on threads and mutexes, for callers that hold a `GeoMutex` of their own.
class KORVELBASE_EXPORT _Thread {
 public:
  /// A number for the calling thread that no other thread of the process ever gets, above 0 and
  /// below 2^31.
  static std::uint32_t GetThreadID();

  static void LockMutex(GeoMutex& mutex);
  static void UnLockMutex(GeoMutex& mutex);
};
