#include "korvelfile/coordinates/GraphicsObjectInterface.h"

GraphicsObjectInterface::~GraphicsObjectInterface() = default;
