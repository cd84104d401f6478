// Drawing again what was read: it costs what its pixels cost, not its cells.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "Scene.h"
#include "costData.h"
#include "growth.h"
#include "render/settings.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

// The instructions of writing so many rows of pixels, which are all alike.
int64_t copying(int32_t rows, int32_t width) {
  const std::vector<uint32_t> row(static_cast<std::size_t>(width), 7);
  std::vector<uint32_t> picture(row.size() * static_cast<std::size_t>(rows));
  return instructions([&] {
    for (auto to = picture.begin(); to != picture.end();) {
      to = std::copy(row.begin(), row.end(), to);
    }
    // Somebody may look at them: they have to be there.
    asm volatile("" : : "r"(picture.data()) : "memory");
  });
}

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

// Where cells are taller than a pixel, a further row is like the one above: it is put together once
// and written once. One more pass over all pixels costs as much again.
TEST_F(Drawing, OfFurtherRowsIsWritingThemOnce) {
  useColumns(20'000);
  const int64_t few = drawing();
  scene.control().Resize(bench::kWindow.width, 4 * bench::kWindow.height);
  const int64_t many = drawing();
  scene.mustBeWell();
  EXPECT_LE(ratio("further rows beside copying them", many - few,
                  copying(3 * bench::kWindow.height, bench::kWindow.width)),
            2.0);
}

// Their pieces are found cell by cell, and joined through a tree.
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
