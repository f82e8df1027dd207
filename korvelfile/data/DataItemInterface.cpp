#include "korvelfile/data/DataItemInterface.h"

DataItemInterface::~DataItemInterface() = default;
