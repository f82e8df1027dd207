#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>

#include "korvelfile/Export.h"

namespace Korvel {

/// Tells a person who watches the terminal how far a long work is.
///
/// Nothing shows in the first second, nor where nobody watches. The line is gone at the end. One
/// thread at a time.
class KORVELFILE_EXPORT ProgressBar {
 public:
  /// Tells the time.
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  /// On standard error, if that is a terminal.
  /// @param what the work, "geoid.byn", UTF-8; control characters show as "?"
  explicit ProgressBar(const std::string& what);

  /// As `ProgressBar(what)`, for a work that writes to standard output meanwhile: nothing shows if
  /// that is a terminal too, since both would stand in each other's lines.
  static ProgressBar BesideOutput(const std::string& what);

  /// On any stream, by any clock.
  /// @param out       must outlive the bar
  /// @param isWatched false shows nothing
  ProgressBar(const std::string& what, std::ostream& out, bool isWatched, Clock clock);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// Tells how much is done, 0 to 1. Cheap enough to be called for each point.
  void Show(double done);

  /// Takes the line away; nothing shows any more.
  void End();

 private:
  void Draw(double done);

  std::string what_;
  std::ostream& out_;
  bool isWatched_;
  Clock clock_;
  std::chrono::steady_clock::time_point next_;  ///< when to draw
  bool isDrawn_ = false;
};

}  // namespace Korvel
