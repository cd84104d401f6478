// Drawing again what was read: it costs what its pixels cost, not its cells.
#include <gtest/gtest.h>

#include "Scene.h"
#include "costData.h"
#include "fill.h"
#include "growth.h"
#include "render/settings.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

class Drawing : public testing::Test {
 protected:
  void useColumns(int32_t columns) {
    scene.useColumns(columns);
    scene.control().Draw();
    scene.mustBeWell();
    EXPECT_EQ(scene.columns(), columns);
  }
  int64_t drawing() {
    return instructions([&] { scene.control().ReDraw(); });
  }

  bench::Scene scene{dataFile("long"), bench::acrossPath(), bench::kWindow};
};

// Of each column its edge is mapped and rounded, whether it is seen or not; nothing is done for
// each of its cells. Painting them all makes it 3 to 4 times.
TEST_F(Drawing, OfCellsNarrowerThanAPixelIsOfPixels) {
  useColumns(5000);
  const int64_t few = drawing();
  useColumns(20'000);
  EXPECT_LE(ratio("4 times as many columns", drawing(), few), 1.8);
}

// Every pixel is written once; one more pass over them is half a fill or more.
TEST_F(Drawing, CostsLessThanTwoFillsOfThePicture) {
  useColumns(20'000);
  const int64_t small = drawing();
  scene.control().Resize(bench::kLargeScreen.width, bench::kLargeScreen.height);
  const int64_t large = drawing();
  scene.mustBeWell();
  EXPECT_LE(ratio("drawing beside fill, of further pixels", large - small,
                  fill(bench::kLargeScreen) - fill(bench::kWindow)),
            2.0);
}

// Their pieces are found cell by cell, and joined.
TEST_F(Drawing, OfContourLinesGrowsWithTheCells) {
  KelvaneMain::settings.ViewStyle = 1;
  const double each = costOfEach("contour lines", 1000, 4, [&](int32_t columns) {
    useColumns(columns);
    return drawing();
  });
  EXPECT_LE(each, 1.25);
}

// Each has a box and a label in the legend.
TEST_F(Drawing, OfAKeyGrowsWithItsDivisions) {
  useColumns(1000);
  const double each = costOfEach("divisions", 500, 4, [&](int32_t divisions) {
    scene.useKey(divisions);
    return drawing();
  });
  EXPECT_LE(each, kInProportion);
}

}  // namespace
}  // namespace cost
