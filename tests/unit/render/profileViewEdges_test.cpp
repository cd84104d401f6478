#include <limits>
#include <new>

#include "ProfileScene.h"
#include "render/profileView.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/lastError.h"

namespace {

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

// What is left of a profile view when something is missing, too much or out of place.
class ProfileViewEdges : public render_tests::ProfileScene {
 protected:
  bool nothingWasTouched() const {
    for (const auto* box :
         {&boxes.picSection, &boxes.picDateTime, &boxes.picContours, &boxes.Picture1}) {
      if (!box->operations.empty()) return false;
    }
    return util::LastError.empty();
  }
  // The profile lines of each colour of a shared graph, in order of appearance.
  std::vector<platform::Colour> profileColours() const {
    std::vector<platform::Colour> colours;
    for (const Operation& line : profileLines()) {
      if (colours.empty() || colours.back() != line.colour) colours.push_back(line.colour);
    }
    return colours;
  }
  void expectTransfers() const {
    EXPECT_EQ(script(boxes.Picture1), (Texts{"cls", "and picSection", "refresh"}));
  }
};

TEST_F(ProfileViewEdges, WithoutAnItemAPointAColumnOrAGridNothingHappens) {
  Item_shown = 0;
  draw();
  EXPECT_TRUE(nothingWasTouched()) << "item";
  Item_shown = 1;
  points({});
  draw();
  EXPECT_TRUE(nothingWasTouched()) << "points";
  points({1});
  section.ncols = 0;
  draw();
  EXPECT_TRUE(nothingWasTouched()) << "columns";
  section.ncols = 7;
  section_values = {};
  draw();
  EXPECT_TRUE(nothingWasTouched()) << "grid";
}

TEST_F(ProfileViewEdges, AnItemThatIsNotThereEndsTheDrawingAfterTheTitles) {
  Item_shown = 2;
  draw();
  EXPECT_EQ(util::LastError, "DrawProfile KelvaneMain: 9, KelvaneCtl, Subscript out of range");
  boxes.picSection.printOf("little run");
  EXPECT_TRUE(boxes.picSection.of(Kind::Line).empty());
  expectTransfers();
}

TEST_F(ProfileViewEdges, APointWithoutAColumnKeepsItsGraphAndLabel) {
  for (const int32_t column : {0, -1, 8}) {  // 8: the path was made longer since the read
    points({1, column, 4});
    settings.ProfileStyle = 0;
    draw();
    EXPECT_EQ(boxes.picSection.printOf("P2").x1, 309.0F);
    EXPECT_EQ(profileLines().size(), 4U);
    const auto lines = boxes.picSection.of(Kind::Line);
    EXPECT_EQ(lines.size(), 3U * (4 + 11 + 9) + 4U);
    settings.ProfileStyle = 1;
    draw();
    EXPECT_EQ(boxes.picSection.printOf("P2").colour, 65280);
    EXPECT_EQ(profileColours(), (std::vector<platform::Colour>{16711680, 16776960}));
  }
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ProfileViewEdges, ColoursOfManyProfilesComeAgainWithoutWhite) {
  std::vector<int32_t> columns;
  for (int32_t p = 0; p < 15; ++p) columns.push_back(p % 7 + 1);
  points(columns);
  settings.ProfileStyle = 1;
  draw();
  const std::vector<platform::Colour> again = {16711680, 65280,    16776960,
                                               255,      16711935, 65535};
  std::vector<platform::Colour> expected = again;
  expected.push_back(16777215);
  expected.insert(expected.end(), again.begin(), again.end());
  expected.insert(expected.end(), {16711680, 65280});
  EXPECT_EQ(profileColours(), expected);
  for (int32_t p = 1; p <= 15; ++p) {
    EXPECT_EQ(boxes.picSection.printOf(section.point_label(p)).colour,
              expected[static_cast<std::size_t>(p - 1)]);
  }
}

TEST_F(ProfileViewEdges, FortyPointsShareAGraphAndHaveNoRoomForTheirOwn) {
  points(std::vector<int32_t>(40, 1));
  settings.ProfileStyle = 1;
  draw();
  EXPECT_EQ(profileLines().size(), 80U);
  settings.ProfileStyle = 0;
  draw();
  // The gaps take the whole width: labels alone, no graphs turned inside out.
  EXPECT_TRUE(boxes.picSection.of(Kind::Line).empty());
  EXPECT_EQ(boxes.picSection.texts().size(), 3U + 40U);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ProfileViewEdges, ValueLabelsOfNarrowGraphsStayClearOfEachOther) {
  for (const std::size_t n : {8U, 15U, 20U}) {
    points(std::vector<int32_t>(n, 1));
    draw();
    float end = -10;
    std::size_t ticks = 0;
    for (const Operation& op : boxes.picSection.operations) {
      if (op.kind == Kind::Line && op.y1 == 348.0F && op.y2 == 354.5F) ++ticks;
      if (op.kind != Kind::Print || op.y1 != 354.5F) continue;
      EXPECT_GE(op.x1, end + 6.0F) << n;
      end = op.x1 + 6.0F * static_cast<float>(op.text.size());
      EXPECT_LE(end, 600.0F);
    }
    EXPECT_GT(end, 42.0F);
    EXPECT_EQ(ticks, n * 9);
  }
}

TEST_F(ProfileViewEdges, AColumnWithoutAnyValueIsAnEmptyFrame) {
  for (int32_t c = 1; c <= 7; ++c) {
    for (int32_t k = 1; k <= 3; ++k) {
      section_values.store(c, k, k == 2 ? std::numeric_limits<float>::quiet_NaN() : -1e35F);
    }
  }
  draw();
  EXPECT_TRUE(profileLines().empty());
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 3U * (4 + 11 + 9));
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ProfileViewEdges, AGapIsBridged) {
  section_values.store(1, 2, -1e35F);
  points({1});
  draw();
  const auto lines = profileLines();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].y1, 52.0F);
  EXPECT_EQ(lines[0].y2, 348.0F);
}

TEST_F(ProfileViewEdges, WithoutARangeRectangleAndLabelStay) {
  DrawItems(1).plot_max = DrawItems(1).plot_min = 0;
  draw();
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 3U * (4 + 11));
  EXPECT_EQ(boxes.picSection.printOf("P3").y1, 39.0F);
  holdGrid(7, {0});
  points({1, 4, 7});
  draw();
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 3U * 4);
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ProfileViewEdges, ASingleDeepLevelHasAxesAndNoLine) {
  holdGrid(7, {10});
  draw();
  EXPECT_TRUE(profileLines().empty());
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 3U * (4 + 3 + 9));
}

TEST_F(ProfileViewEdges, AnAbsurdValueIsReportedAndWhatWasDrawnIsShown) {
  section_values.store(4, 1, 3.4e38F);
  DrawItems(1).plot_max = 9.001F;
  draw();
  EXPECT_EQ(util::LastError, "DrawProfile KelvaneMain: 6, KelvaneCtl, Overflow");
  EXPECT_EQ(profileLines().size(), 2U) << "the first graph";
  EXPECT_EQ(boxes.picSection.Font, platform::Font{});
  EXPECT_EQ(boxes.picSection.DrawWidth, 1);
  expectTransfers();
}

TEST_F(ProfileViewEdges, AnIntervalTooSmallForTheRangeIsAnOverflow) {
  DrawItems(1).plot_interval = 1e-6F;
  draw();
  EXPECT_EQ(util::LastError, "DrawProfile KelvaneMain: 6, KelvaneCtl, Overflow");
  expectTransfers();
}

TEST_F(ProfileViewEdges, SurfacesOfEverySizeAreDrawn) {
  const struct {
    int32_t width, height;
    bool room;
  } sizes[] = {{1, 1, false},      {30, 30, false},  {5000, 100, false},
               {5000, 106, true},  {60, 400, true},  {100, 5000, true}};
  for (const auto& size : sizes) {
    resize(size.width, size.height);
    for (const int32_t style : {0, 1}) {
      settings.ProfileStyle = style;
      draw();
      EXPECT_EQ(!boxes.picSection.of(Kind::Line).empty(), size.room)
          << size.width << 'x' << size.height;
      expectTransfers();
    }
  }
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(desktop.messages.empty());
}

// A surface that fails in the middle of a profile, as one without memory would.
class FailingLines : public support::RecordingPictureBox {
 public:
  using RecordingPictureBox::RecordingPictureBox;
  void Line(float x1, float y1, float x2, float y2, platform::Colour colour) override {
    if (DrawWidth == 2) throw std::bad_alloc();
    RecordingPictureBox::Line(x1, y1, x2, y2, colour);
  }
};

TEST_F(ProfileViewEdges, NoExceptionOfAnyKindComesOut) {
  FailingLines failing("picSection");
  platform::Pictures some{boxes.Picture1, boxes.picDateTime, failing, boxes.picContours};
  DrawProfileView(some);
  EXPECT_EQ(util::LastError.rfind("DrawProfile KelvaneMain: 7, KelvaneCtl, ", 0), 0U)
      << util::LastError;
  EXPECT_EQ(failing.DrawWidth, 1);
  EXPECT_EQ(failing.ForeColor, 0);
  expectTransfers();
}

}  // namespace
