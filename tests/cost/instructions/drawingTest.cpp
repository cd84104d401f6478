// Drawing again what was read: it costs what its pixels cost, not its cells.
#include <gtest/gtest.h>

#include "Instructions.h"
#include "Scene.h"
#include "costData.h"
#include "fill.h"
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

// What stays of each column is the mapping of its edge.
TEST_F(Drawing, OfCellsNarrowerThanAPixelIsOfPixels) {
  useColumns(5000);
  const int64_t few = drawing();
  useColumns(20'000);
  EXPECT_LE(ratio("4 times as many columns", drawing(), few), 1.8);
}

// Cells are painted on one picture and come to another: as much as two or three fills.
TEST_F(Drawing, CostsAFewFillsOfThePicture) {
  useColumns(20'000);
  const int64_t small = drawing();
  scene.control().Resize(bench::kLargeScreen.width, bench::kLargeScreen.height);
  const int64_t large = drawing();
  scene.mustBeWell();
  EXPECT_LE(ratio("drawing beside fill, of further pixels", large - small,
                  fill(bench::kLargeScreen) - fill(bench::kWindow)),
            2.4);
}

// Each has a box and a label in the legend.
TEST_F(Drawing, OfAKeyGrowsWithItsDivisions) {
  useColumns(1000);
  scene.useKey(500);
  const int64_t few = drawing();
  scene.useKey(2000);
  EXPECT_LE(ratio("4 times as many divisions", drawing(), few), 4.4);
}

}  // namespace
}  // namespace cost
