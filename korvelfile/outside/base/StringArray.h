#pragma once

#include "korvelfile/outside/base/ArrayTemplate.h"
#include "korvelfile/outside/base/String.h"

namespace deprecated {

/// A growing array of texts. New code takes a `std::vector`.
class StringArray : public ArrayTemplate<String> {};

}  // namespace deprecated
