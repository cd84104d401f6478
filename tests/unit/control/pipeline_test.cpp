#include <cmath>

#include "colorkey/rampColour.h"
#include "netcdf/title.h"
#include "render/plotFrame.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "unit/control/ControlTest.h"

using namespace KelvaneMain;
using platform::rgb;
using support::Operation;
using Kind = Operation::Kind;

namespace {

// From the data set to the picture, as a host drives it.
class Pipeline : public ControlTest {
 protected:
  void draw(const std::vector<SectionPoint>& points) {
    ASSERT_EQ(control.NcFile(tinySet()), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough(points), 1) << control.ErrorMessage();
    control.Draw();
    ASSERT_EQ(control.ErrorMessage(), "");
    ASSERT_TRUE(desktop.messages.empty());
  }

  // The block that has its upper left corner at the world point of a column's left edge and a
  // level's depth.
  Operation block(int32_t c, int32_t k) const {
    const SurfacePoint corner = WorldToSurface(c - 1, 0 - section_values.depth(k));
    for (const Operation& box : boxes.picSection.of(Kind::Box)) {
      if (std::fabs(std::min(box.x1, box.x2) - corner.x) < 0.01F &&
          std::fabs(std::min(box.y1, box.y2) - corner.y) < 0.01F) {
        return box;
      }
    }
    ADD_FAILURE() << "no block " << c << ", " << k;
    return {.kind = Kind::Box};
  }
  // Whether a vertical line stands at x.
  bool hasTick(float x) const {
    for (const Operation& line : boxes.picSection.of(Kind::Line)) {
      if (line.x1 == line.x2 && std::fabs(line.x1 - x) < 0.001F) return true;
    }
    return false;
  }
};

TEST_F(Pipeline, OfAGeneralPath) {
  ASSERT_NO_FATAL_FAILURE(draw({{350, -1}, {360, 0.5F}}));
  EXPECT_EQ(section_values.ncols(), 7);
  EXPECT_EQ(section.section_length_km, 999.973598390379);
  EXPECT_EQ(DrawItems(1).plot_max, 17.3F);
  EXPECT_EQ(DrawItems(1).plot_min, 9.0F);
  EXPECT_EQ(DrawItems(1).plot_interval, 1.0F);

  EXPECT_EQ(plot.TopMargin, 39);
  EXPECT_EQ(plot.BottomMargin, 26);
  EXPECT_EQ(plot.LeftMargin, 48);
  EXPECT_EQ(plot.RightMargin, 42);
  const SurfacePoint top = WorldToSurface(0, 0), bottom = WorldToSurface(7, -200);
  EXPECT_EQ(top.x, 48);
  EXPECT_EQ(top.y, 39);
  EXPECT_EQ(bottom.x, 510);
  EXPECT_EQ(bottom.y, 348);
  const Operation first = block(1, 1);
  EXPECT_EQ(std::max(first.x1, first.x2), 114);
  EXPECT_EQ(std::max(first.y1, first.y2), 116.25F);

  EXPECT_TRUE(hasTick(94.20122F)) << "100 km along the path";
  boxes.picSection.printOf("0 km");
  boxes.picSection.printOf("100");
  boxes.picSection.printOf("900");
  for (const Operation& print : boxes.picSection.of(Kind::Print)) {
    EXPECT_NE(print.text, "1000");
  }
}

TEST_F(Pipeline, StepsInTimeAndKeepsTheRange) {
  ASSERT_NO_FATAL_FAILURE(draw({{350, -1}, {360, 0.5F}}));
  EXPECT_EQ(ocxNetNc::TitleLines(2), "1990-01-02 12:00:00");
  boxes.forget();
  EXPECT_EQ(control.AdvanceTime(1), 2);
  EXPECT_EQ(DrawItems(1).maximum, 17.85F);
  EXPECT_EQ(DrawItems(1).minimum, 9.77F);
  EXPECT_EQ(DrawItems(1).plot_max, 17.3F);
  EXPECT_EQ(DrawItems(1).plot_min, 9.0F);
  EXPECT_EQ(ocxNetNc::TitleLines(2), "1990-01-03 12:00:00");
  EXPECT_EQ(block(7, 1).colour, rgb(245, 0, 0)) << "17.85 lies above the kept range";
  EXPECT_EQ(control.AdvanceTime(1), 1);
}

TEST_F(Pipeline, AlongALatitude) {
  ASSERT_NO_FATAL_FAILURE(draw({{350, 0}, {358, 0}}));
  EXPECT_EQ(section.section_kind, kSameLatitude);
  EXPECT_EQ(sectionType(), 2);
  EXPECT_EQ(plot.BottomMargin, 39);
  for (const char* label : {"350E", "352E", "354E", "356E", "358E"}) {
    boxes.picSection.printOf(label);
  }
  boxes.picSection.printOf("Longitude (deg) Along Constant Latitude= 0N");
}

TEST_F(Pipeline, AlongALongitude) {
  ASSERT_NO_FATAL_FAILURE(draw({{354.5F, -1}, {354.5F, 0.4F}}));
  EXPECT_EQ(section.section_kind, kSameLongitude);
  EXPECT_EQ(sectionType(), 1);
  EXPECT_EQ(plot.BottomMargin, 39);
  for (const char* label : {"1S", "0N", "Latitude (deg) Along Constant Longitude= 354E"}) {
    boxes.picSection.printOf(label);
  }
  EXPECT_EQ(block(1, 1).colour, rgb(245, 0, 0));
  EXPECT_EQ(block(2, 1).colour, rgb(245, 18, 18));
  EXPECT_EQ(block(3, 1).colour, rgb(245, 37, 37));
  EXPECT_EQ(block(1, 2).colour, rgb(78, 78, 245));
  EXPECT_EQ(block(2, 2).colour, rgb(97, 97, 245));
  EXPECT_EQ(block(3, 2).colour, rgb(115, 115, 245));
}

TEST_F(Pipeline, ShadesThroughTheKeyWhenItIsInUse) {
  ASSERT_NO_FATAL_FAILURE(draw({{354.5F, -1}, {354.5F, 0.4F}}));
  control.AddColorKey(16.6F, 17, 255);
  control.AddColorKey(13, 13.3F, 65280);
  control.UseColorKey(true);
  boxes.forget();
  control.ReDraw();
  EXPECT_EQ(block(1, 1).colour, 255);
  EXPECT_EQ(block(2, 1).colour, 255);
  EXPECT_EQ(block(3, 1).colour, 16777215) << "16.56 is in no division";
  EXPECT_EQ(block(1, 2).colour, 16777215);
  EXPECT_EQ(block(2, 2).colour, 65280);
}

TEST_F(Pipeline, OfASecondDataSetDrawsTheOldSectionUntilItIsEndedAgain) {
  ASSERT_NO_FATAL_FAILURE(draw({{350, 0}, {358, 0}}));
  ASSERT_EQ(control.NcFile(tinySet("second.nc")), 1);
  control.Draw();
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(section_values.ncols(), 4);
  ASSERT_EQ(control.EndSection(), 1);
  control.Draw();
  EXPECT_EQ(section_values.value(4, 3), 9.93F);
}

}  // namespace
