#include "korvelfile/outside/base/DataStream.h"

DataStream::~DataStream() = default;
