// A frame, its reading and its drawing, beside the least that any program does for it: the bare
// calls of the netCDF library that fetch the same values, and one fill of the picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "BareReads.h"
#include "Instructions.h"
#include "Scene.h"
#include "costData.h"
#include "fill.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

// One call a column or one for the box around the path, whichever costs less.
int64_t bareReading(const bench::Scene& scene) {
  bench::BareReads bare = scene.bareReads();
  return std::min(instructions([&] { bare.columnByColumn(0); }),
                  instructions([&] { bare.boundingBox(0); }));
}

int64_t reading(const bench::Scene& scene) {
  const int64_t cost = instructions([] { KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1); });
  scene.mustBeWell();
  return cost;
}

class Layout : public testing::TestWithParam<const char*> {};

// Every chunk twice would be twice the floor.
TEST_P(Layout, IsReadAndDrawnForLittleMoreThanItsFloor) {
  bench::Scene scene(dataFile(GetParam()), bench::acrossPath(), bench::kWindow);
  const int64_t bare = bareReading(scene);
  EXPECT_LE(ratio("reading", reading(scene), bare), 1.5);
  const int64_t frame = instructions([&] { scene.control().AdvanceTime(1); });
  scene.mustBeWell();
  EXPECT_LE(ratio("frame", frame, bare + fill(bench::kWindow)), 1.5);
}

INSTANTIATE_TEST_SUITE_P(, Layout, testing::Values("classic", "levels"),
                         [](const auto& tested) { return std::string(tested.param); });

// The bare call gives raw numbers, level by level. They are converted, turned to columns and
// counted, which compilers do differently. A call for each column would cost 25 times the floor.
TEST(Row, IsReadForAFewPassesMoreThanItsFloor) {
  const bench::Scene scene(dataFile("classic"), bench::rowPath(), bench::kWindow);
  EXPECT_LE(ratio("reading a row", reading(scene), bareReading(scene)), 4.0);
}

class Frame : public testing::Test {
 protected:
  int64_t drawing() {
    return instructions([&] { scene.control().ReDraw(); });
  }

  bench::Scene scene{dataFile("classic"), bench::acrossPath(), bench::kWindow};
};

TEST_F(Frame, IsReadingMoreThanDrawing) {
  EXPECT_LE(ratio("drawing beside reading", drawing(), bareReading(scene)), 0.3);
}

// What the bare calls have the system do is not counted, so that this floor is rather low.
TEST_F(Frame, HasContourLinesForHardlyMoreThanItsFloor) {
  KelvaneMain::settings.ViewStyle = 1;
  EXPECT_LE(ratio("contour lines", drawing(), bareReading(scene) + fill(bench::kWindow)), 2.0);
}

TEST_F(Frame, IsLetteredForNothingWorthNaming) {
  const int64_t all = drawing();
  KelvaneMain::settings.ShowTitles = KelvaneMain::settings.ShowLegend = 0;
  const int64_t lettering = all - drawing();
  EXPECT_GT(lettering, 0);
  EXPECT_LE(ratio("titles and legend beside reading", lettering, bareReading(scene)), 0.06);
}

}  // namespace
}  // namespace cost
