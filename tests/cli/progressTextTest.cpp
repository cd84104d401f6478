#include <gtest/gtest.h>

#include <algorithm>

#include "ProgressBar.h"

namespace {

struct ProgressCase {
  int32_t done, total;
  double seconds;
  int32_t width;
  const char* wanted;
};

TEST(ProgressText, FillsTheWidthWithWhatFits) {
  const ProgressCase cases[] = {
      {5, 10, 2.0, 80,
       "[################-----------------]  50%  frame 5 of 10  2.5 frames/s  0:02 left"},
      {5, 10, 2.0, 200,
       "[####################--------------------]  50%  frame 5 of 10  2.5 frames/s  0:02 left"},
      {5, 10, 2.0, 59, "[######------]  50%  frame 5 of 10  2.5 frames/s  0:02 left"},
      {5, 10, 2.0, 57, "[#####-----]  50%  frame 5 of 10  2.5 frames/s  0:02 left"},
      {5, 10, 2.0, 56, " 50%  frame 5 of 10  2.5 frames/s  0:02 left"},
      {5, 10, 2.0, 40, " 50%  frame 5 of 10  2.5 frames/s"},
      {5, 10, 2.0, 20, " 50%  frame 5 of 10"},
      {5, 10, 2.0, 4, " 50%"},
      {5, 10, 2.0, 3, ""},
      {5, 10, 2.0, 0, ""},
      {5, 10, 2.0, -1, ""},
      {0, 10, 0.0, 60, "[--------------------------------------]   0%  frame 0 of 10"},
      {10, 10, 4.0, 60, "[############] 100%  frame 10 of 10  2.5 frames/s  0:00 left"},
      {1, 999, 0.01, 50, "  0%  frame 1 of 999  100 frames/s  0:10 left"},
      {1, 3601, 4.0, 50, "  0%  frame 1 of 3601  0.25 frames/s  4:00:00 left"},
      {1, 2, 25.0, 46, " 50%  frame 1 of 2  0.04 frames/s  0:25 left"},
      {998, 999, 998.0, 47, " 99%  frame 998 of 999  1.0 frames/s  0:01 left"},
  };
  for (const ProgressCase& each : cases) {
    EXPECT_EQ(cli::progressText(each.done, each.total, each.seconds, each.width), each.wanted);
    EXPECT_LE(std::string(each.wanted).size(), static_cast<std::size_t>(std::max(each.width, 0)));
  }
}

}  // namespace
