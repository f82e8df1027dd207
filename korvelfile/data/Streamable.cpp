#include "korvelfile/data/Streamable.h"

Streamable::~Streamable() = default;
