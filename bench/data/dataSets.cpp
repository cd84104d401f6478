#include "dataSets.h"

namespace bench {
namespace {

constexpr double kTwelfth = 1.0 / 12.0;

}  // namespace

std::vector<DataSet> dataSets(bool tiny) {
  if (tiny) {
    return {{"regional-classic", 30, 20, 5, 3, 285, 20, 0.5, Layout::Offset64, 0, 0},
            {"regional-blocks", 30, 20, 5, 3, 285, 20, 0.5, Layout::Blocks, 2, 10},
            {"regional-levels", 30, 20, 5, 3, 285, 20, 0.5, Layout::LevelChunks, 0, 0},
            {"global", 36, 18, 6, 3, 5, -85, 10, Layout::LevelChunks, 0, 0},
            {"long", 200, 3, 8, 3, 100, 10, 0.01, Layout::Offset64, 0, 0}};
  }
  return {{"regional-classic", 600, 400, 50, 24, 285, 20, kTwelfth, Layout::Offset64, 0, 0},
          {"regional-blocks", 600, 400, 50, 24, 285, 20, kTwelfth, Layout::Blocks, 10, 100},
          {"regional-levels", 600, 400, 50, 24, 285, 20, kTwelfth, Layout::LevelChunks, 0, 0},
          {"global", 1440, 720, 75, 3, 0.125, -89.875, 0.25, Layout::LevelChunks, 0, 0},
          {"long", 20000, 3, 200, 3, 100, 10, 0.01, Layout::Offset64, 0, 0}};
}

}  // namespace bench
