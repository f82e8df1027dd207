#include "korvelfile/Version.h"

const char* KorvelFileVersion() { return KORVELFILE_VERSION; }
