#include "korvelfile/measurements/IStationVisitor.h"

IStationVisitor::~IStationVisitor() = default;
