#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/services/ProgressBar.h"

TEST(ProgressBar, ShowsAfterASecondAndIsGoneAtTheEnd) {
  std::chrono::steady_clock::time_point now;
  const auto clock = [&] { return now; };
  for (const bool isWatched : {true, false}) {
    now = {};
    std::ostringstream out;
    {
      Korvel::ProgressBar bar("g\t.ccg", out, isWatched, clock);
      now += std::chrono::milliseconds(999);
      bar.Show(0.3);
      EXPECT_EQ(out.str(), "");
      now += std::chrono::milliseconds(1);
      bar.Show(0.5);
      now += std::chrono::milliseconds(50);
      bar.Show(0.6);
    }
    EXPECT_EQ(out.str(),
              isWatched ? "\rg?.ccg [###############...............] 50 %\x1B[K\r\x1B[K" : "");
  }
}
