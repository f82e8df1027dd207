#pragma once

namespace File::detail {

/// Thrown where a line has no further point.
struct EndOfLine {};

}  // namespace File::detail
