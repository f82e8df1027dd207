#pragma once

#include "korvelfile/Export.h"

/// Version of the KorvelFile library that is loaded at run time, "major.minor.patch".
///
/// It may differ from the version that a program was compiled against; libraries of one major
/// version are binary compatible.
///
/// @return static text, never null; may be called from any thread
KORVELFILE_EXPORT const char* KorvelFileVersion();
