#include "korvelfile/coordinates/AssociatedFiles.h"

File::Association::IAssociatedFiles::~IAssociatedFiles() = default;
