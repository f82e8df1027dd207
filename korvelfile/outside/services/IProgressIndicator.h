#pragma once

#include <string>

#include "korvelfile/Export.h"

namespace Korvel {

/// Tells a user how far a work is. Called from the thread that does the work.
class KORVELFILE_EXPORT IProgressIndicator {
 public:
  virtual ~IProgressIndicator();

  /// A part of the work begins, and the part before it is over.
  /// @param text  what is done, in the user's language
  /// @param total how many steps there are; fewer may come
  virtual void Begin(const std::wstring& text, int total) = 0;

  /// One more step is done.
  virtual void Step() = 0;
};

}  // namespace Korvel
