#include "korvelfile/corrections/CoordinateCorrectionModelInterface.h"

CoordinateCorrectionModelInterface::~CoordinateCorrectionModelInterface() = default;
