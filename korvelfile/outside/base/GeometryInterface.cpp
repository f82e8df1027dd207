#include "korvelfile/outside/base/GeometryInterface.h"

GeometryInterface::~GeometryInterface() = default;
