#include "korvelfile/coordinates/CoordinatesKeeper.h"

CoordinatesKeeper::~CoordinatesKeeper() = default;
