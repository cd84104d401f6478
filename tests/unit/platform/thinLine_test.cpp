#include "platform/thinLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using platform::PixelRows;

constexpr int32_t kWidth = 8, kHeight = 4;

// The picture of a line, '#' where it is.
std::string drawn(const platform::LinePiece& line) {
  std::vector<uint32_t> pixels(std::size_t{kWidth} * kHeight);
  PixelRows rows(pixels.data(), kWidth, kWidth, kHeight);
  platform::drawThinLine(rows, line, 0x0000FF);
  std::string picture;
  for (int32_t y = 0; y < kHeight; ++y) {
    for (int32_t x = 0; x < kWidth; ++x) {
      const uint32_t pixel = rows.pixel(x, y);
      EXPECT_TRUE(pixel == 0xFF0000 || pixel == platform::kWhitePixel) << x << ", " << y;
      picture += pixel == platform::kWhitePixel ? '.' : '#';
    }
    picture += '\n';
  }
  return picture;
}

TEST(ThinLine, HasOnePixelAStepAndBothEnds) {
  struct Row {
    platform::LinePiece line;
    const char* picture;
  };
  const Row rows[] = {
      {{2, 1, 2, 1}, "........\n..#.....\n........\n........\n"},
      {{1, 2, 6, 2}, "........\n........\n.######.\n........\n"},
      {{3, 3, 3, 0}, "...#....\n...#....\n...#....\n...#....\n"},
      {{0, 0, 3, 3}, "#.......\n.#......\n..#.....\n...#....\n"},
      {{0, 0, 7, 2}, "##......\n..####..\n......##\n........\n"},
      {{7, 3, 0, 1}, "........\n##......\n..####..\n......##\n"},
      {{1, 3, 2, 0}, "..#.....\n..#.....\n.#......\n.#......\n"},
      // Halves to even.
      {{0.5, 0.5, 3.5, 0.5}, "#####...\n........\n........\n........\n"}};
  for (const Row& row : rows) {
    EXPECT_EQ(drawn(row.line), row.picture)
        << row.line.x1 << " " << row.line.y1 << " " << row.line.x2 << " " << row.line.y2;
  }
}

TEST(ThinLine, LeavesOutWhatIsOutside) {
  EXPECT_EQ(drawn({-3, 1, 10, 1}), "........\n########\n........\n........\n");
  EXPECT_EQ(drawn({5, -3, 5, 6}), ".....#..\n.....#..\n.....#..\n.....#..\n");
  EXPECT_EQ(drawn({-3, -3, 6, 6}), "#.......\n.#......\n..#.....\n...#....\n");
  const std::string white = "........\n........\n........\n........\n";
  EXPECT_EQ(drawn({-3, -3, -1, 6}), white);
  EXPECT_EQ(drawn({0, 4, 7, 6}), white);
}

TEST(ThinLine, GoesOnWhereAnotherEnds) {
  const std::string whole = drawn({0, 0, 6, 3});
  const std::string first = drawn({0, 0, 2, 1}), second = drawn({2, 1, 6, 3});
  std::string both = first;
  for (std::size_t n = 0; n < both.size(); ++n) {
    if (second[n] == '#') both[n] = '#';
  }
  EXPECT_EQ(both, whole);
}

}  // namespace
