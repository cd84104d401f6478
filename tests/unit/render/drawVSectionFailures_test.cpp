#include <algorithm>
#include <limits>

#include "HeldSection.h"
#include "colorkey/colorKey.h"
#include "render/drawVSection.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/lastError.h"

namespace {

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;

// What a drawing that fails still shows. Every one ends with the transfers.
class DrawVSectionFailures : public render_tests::HeldSection {
 protected:
  void draw() {
    boxes.forget();
    DrawVSection(pictures);
    EXPECT_EQ(boxes.picSection.of(Kind::And).size(), 2U);
    EXPECT_EQ(boxes.Picture1.of(Kind::And).size(), 1U);
    EXPECT_EQ(boxes.Picture1.operations.back().kind, Kind::Refresh);
    EXPECT_EQ(boxes.picSection.Font, platform::Font{});
  }
  void resize(int32_t width, int32_t height) {
    for (auto* box : {&boxes.picDateTime, &boxes.picSection, &boxes.picContours, &boxes.Picture1}) {
      box->Move(0, 0, width, height);
    }
  }
  bool printed(const std::string& text) {
    const auto texts = boxes.picSection.texts();
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }
};

constexpr char kSubscriptText[] = "DrawVSection KelvaneMain: 9, KelvaneCtl, Subscript out of range";
constexpr char kOverflowText[] = "DrawVSection KelvaneMain: 6, KelvaneCtl, Overflow";

TEST_F(DrawVSectionFailures, BeforeAnyReadThereAreTitlesOnly) {
  section_values = {};
  draw();
  EXPECT_EQ(util::LastError, kSubscriptText);
  EXPECT_TRUE(printed("little run"));
  EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty());
  EXPECT_TRUE(boxes.picSection.of(Kind::Line).empty());
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(DrawVSectionFailures, NoItemShownEndsTheDrawingAfterTheTitles) {
  for (const int32_t item : {0, -1, 2}) {
    util::LastError.clear();
    Item_shown = item;
    draw();
    EXPECT_EQ(util::LastError, kSubscriptText) << item;
    EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty());
  }
}

TEST_F(DrawVSectionFailures, AZeroDepthRangeIsABoxAndStillHasTitlesAndLegend) {
  holdGrid(7, {0});
  draw();
  EXPECT_EQ(util::LastError, "");
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].text, "[Cartesian] scale parameters out of rangexy4:x=07xy4:y=00");
  EXPECT_EQ(desktop.messages[0].caption, "KelvaneCtl");
  EXPECT_TRUE(printed("little run"));
  EXPECT_TRUE(printed("17.30"));
  EXPECT_FALSE(boxes.picSection.printOf("17.30").font.Bold);
  EXPECT_TRUE(boxes.picSection.of(Kind::Line).empty());
  EXPECT_EQ(boxes.picSection.of(Kind::Box).size(), 50U);
}

TEST_F(DrawVSectionFailures, ASurfaceWithoutRoomIsABox) {
  resize(0, 0);
  draw();
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].text,
            "[Cartesian] screen size out of rangepwidth, phight = -90-65");
  EXPECT_EQ(util::LastError, "");
}

TEST_F(DrawVSectionFailures, ALowSurfaceIsStillMapped) {
  resize(600, 20);
  draw();
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(boxes.picSection.of(Kind::Box).size(), 14U + 50U);
}

TEST_F(DrawVSectionFailures, AKeyWithoutItsListsStopsAtTheFirstBlock) {
  ModColor::ColorKey.nDivision = 2;
  ModColor::bUseKey = -1;
  draw();
  EXPECT_EQ(util::LastError, kSubscriptText);
  EXPECT_TRUE(printed("little run"));
  EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty());
}

TEST_F(DrawVSectionFailures, AFailedLoadIsWhiteWithAnEmptyLegend) {
  ModColor::ColorKey.nDivision = -1;
  ModColor::bUseKey = -1;
  draw();
  EXPECT_EQ(util::LastError, "");
  const auto found = boxes.picSection.of(Kind::Box);
  EXPECT_EQ(found.size(), 14U);
  for (const Operation& block : found) EXPECT_EQ(block.colour, 16777215);
}

TEST_F(DrawVSectionFailures, ARangeBeyondSinglePrecisionIsAnOverflow) {
  DrawItems(1).plot_max = 3e38F;
  DrawItems(1).plot_min = -3e38F;
  draw();
  EXPECT_EQ(util::LastError, kOverflowText);
  EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty());
}

TEST_F(DrawVSectionFailures, AStaleCellKeepsTheBlocksDrawnBeforeIt) {
  alongLatitude(7);
  section.column_cells(1) = {99, 99};
  draw();
  EXPECT_EQ(util::LastError, kSubscriptText);
  EXPECT_EQ(boxes.picSection.of(Kind::Box).size(), 14U);
  EXPECT_FALSE(printed("17.30"));
}

TEST_F(DrawVSectionFailures, DepthsThatAreNoNumbersDoNotStopAnything) {
  holdGrid(7, {0, std::numeric_limits<double>::quiet_NaN()});
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(printed("17.30"));
}

// A surface that fails in the middle of the drawing, as one without memory would.
class FailingBox : public support::RecordingPictureBox {
 public:
  using RecordingPictureBox::RecordingPictureBox;
  void Box(float, float, float, float, platform::Colour) override {
    if (++count == 3) throw std::bad_alloc();
  }
  int count = 0;
};

TEST_F(DrawVSectionFailures, NoExceptionOfAnyKindComesOut) {
  FailingBox failing("picSection");
  platform::Pictures some{boxes.Picture1, boxes.picDateTime, failing, boxes.picContours};
  DrawVSection(some);
  EXPECT_EQ(failing.count, 3);
  EXPECT_EQ(util::LastError.rfind("DrawVSection KelvaneMain: 7, KelvaneCtl, ", 0), 0U)
      << util::LastError;
  EXPECT_EQ(boxes.Picture1.of(Kind::And).size(), 1U);
}

}  // namespace
