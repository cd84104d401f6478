#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <utility>

#include "platform/cairo/CairoPictures.h"
#include "platform/cairo/CairoPixelBox.h"

namespace {

using platform::CairoPixelBox;
using platform::Colour;
using platform::Edges;
using platform::Lettering;
using platform::rgb;

constexpr Colour kPaper = rgb(255, 255, 255);
constexpr Colour kInk = rgb(120, 30, 200);

using Pixels = std::set<std::pair<int32_t, int32_t>>;

class HardEdgesTest : public testing::Test {
 protected:
  void SetUp() override { box.Move(0, 0, 200, 150); }

  std::set<Colour> colours() const {
    std::set<Colour> found;
    for (int32_t y = 0; y < 150; ++y) {
      for (int32_t x = 0; x < 200; ++x) found.insert(box.pixel(x, y));
    }
    return found;
  }
  Pixels inked() const {
    Pixels found;
    for (int32_t y = 0; y < 150; ++y) {
      for (int32_t x = 0; x < 200; ++x) {
        if (box.pixel(x, y) != kPaper) found.insert({x, y});
      }
    }
    return found;
  }
  // Whether every pixel can be reached from every other over neighbours.
  static bool connected(Pixels pixels) {
    Pixels edge{*pixels.begin()};
    while (!edge.empty()) {
      const auto [x, y] = *edge.begin();
      edge.erase(edge.begin());
      pixels.erase({x, y});
      for (int32_t dx = -1; dx <= 1; ++dx) {
        for (int32_t dy = -1; dy <= 1; ++dy) {
          if (pixels.count({x + dx, y + dy}) != 0) edge.insert({x + dx, y + dy});
        }
      }
    }
    return pixels.empty();
  }

  Lettering lettering{Lettering::Grid::WholePixels, Edges::Hard};
  CairoPixelBox box{lettering};
};

TEST_F(HardEdgesTest, ASlantedLineHasOnePixelAStepAndBothEnds) {
  struct Row {
    float x1, y1, x2, y2;
    std::size_t pixels;
  };
  const Row rows[] = {{5, 5, 15, 10, 11},    {15, 10, 5, 5, 11},    {5, 5, 8, 25, 21},
                      {8, 25, 5, 5, 21},     {50, 50, 40, 60, 11},  {3, 3, 4, 4, 2},
                      {2.4F, 3, 9.6F, 4, 9}, {7, 7, 7.3F, 7.4F, 1}, {10, 90, 190, 20, 181}};
  for (const Row& row : rows) {
    box.Cls();
    box.Line(row.x1, row.y1, row.x2, row.y2, kInk);
    const Pixels found = inked();
    EXPECT_EQ(found.size(), row.pixels) << row.x1 << ", " << row.y1;
    EXPECT_TRUE(connected(found));
    EXPECT_EQ(colours().count(kInk), 1U);
    EXPECT_EQ(colours().size(), 2U) << "grey";
    // No pixel is farther than half a step from the line through the two end pixels.
    const auto whole = [](float value) { return std::nearbyint(static_cast<double>(value)); };
    const double x1 = whole(row.x1), y1 = whole(row.y1);
    const double dx = whole(row.x2) - x1, dy = whole(row.y2) - y1;
    for (const auto& [x, y] : found) {
      const double off = std::fabs((x - x1) * dy - (y - y1) * dx);
      EXPECT_LE(off, 0.5 * std::max(std::fabs(dx), std::fabs(dy)) + 1e-9);
    }
  }
}

TEST_F(HardEdgesTest, LinesThatShareAnEndAreOneLine) {
  // A spiral of short pieces, as contour lines are.
  float x = 100, y = 75;
  for (int32_t n = 1; n < 200; ++n) {
    const double angle = n * 0.21, radius = n * 0.35;
    const auto nextX = static_cast<float>(100 + radius * std::cos(angle));
    const auto nextY = static_cast<float>(75 + radius * std::sin(angle));
    box.Line(x, y, nextX, nextY, kInk);
    x = nextX;
    y = nextY;
  }
  EXPECT_TRUE(connected(inked()));
  EXPECT_EQ(colours(), (std::set<Colour>{kInk, kPaper}));
}

TEST_F(HardEdgesTest, LinesFromFarOutsideAreCut) {
  box.Line(-1e9F, -1e9F, 1e9F, 1e9F, kInk);
  for (int32_t place = 0; place < 150; ++place) EXPECT_EQ(box.pixel(place, place), kInk);
  EXPECT_EQ(inked().size(), 150U);
  box.Line(-50, 300, 400, 220, kInk);
  EXPECT_EQ(inked().size(), 150U);
}

TEST_F(HardEdgesTest, ThickLinesAndLettersHaveNoGrey) {
  box.DrawWidth = 5;
  box.Line(20, 20, 120, 70, kInk);
  EXPECT_GT(inked().size(), 400U);
  EXPECT_EQ(colours(), (std::set<Colour>{kInk, kPaper}));
  for (const float points : {8.0F, 12.0F, 20.0F}) {
    box.Cls();
    box.Font.Size = points;
    box.ForeColor = kInk;
    box.CurrentX = box.CurrentY = 10;
    box.Print(" -12.5E+07");
    EXPECT_GT(inked().size(), 50U);
    EXPECT_EQ(colours(), (std::set<Colour>{kInk, kPaper})) << points;
    for (const auto& [x, y] : inked()) {
      EXPECT_GE(x, 9);
      EXPECT_GE(y, 10);
    }
  }
}

TEST_F(HardEdgesTest, OfThePicturesOnlyTheContoursHaveThem) {
  platform::CairoPictures all(platform::CairoPictures::Kind::Pixels);
  const platform::Pictures pictures = all.pictures();
  const auto coloursOf = [](platform::PictureBox& picture) {
    auto& pixels = dynamic_cast<CairoPixelBox&>(picture);
    pixels.Move(0, 0, 100, 60);
    pixels.Line(3, 3, 90, 37, 0);
    pixels.CurrentX = pixels.CurrentY = 10;
    pixels.Print("2.5");
    std::set<Colour> found;
    for (int32_t y = 0; y < 60; ++y) {
      for (int32_t x = 0; x < 100; ++x) found.insert(pixels.pixel(x, y));
    }
    return found.size();
  };
  EXPECT_EQ(coloursOf(pictures.picContours), 2U);
  EXPECT_GT(coloursOf(pictures.picSection), 4U);
  EXPECT_GT(coloursOf(pictures.picDateTime), 4U);
}

}  // namespace
