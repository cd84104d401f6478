#include "render/profileView.h"

#include "ProfileScene.h"
#include "netcdf/title.h"
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
using Texts = std::vector<std::string>;

// Three points on columns 1, 4 and 7; few ticks, so that a drawing can be read line by line.
class ProfileView : public render_tests::ProfileScene {
 protected:
  void SetUp() override {
    ProfileScene::SetUp();
    section_values.depths = {0, 0, 5, 20};
    section_values.section_depth_max = 20;
    DrawItems(1).plot_interval = 4;
  }
};

const Texts kTitles = {"cls", "print 492 6.5 bold [Data Set: tiny.nc]",
                       "print 270 19.5 bold [little run]",
                       "print 174 370.75 bold large [potential temperature [degC]]"};

// The steps one after the other.
Texts joined(const std::vector<Texts>& parts) {
  Texts all;
  for (const Texts& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST_F(ProfileView, AllProfilesInOneGraph) {
  settings.ProfileStyle = 1;
  draw();
  EXPECT_EQ(util::LastError, "");
  const Texts frame = {
      "line 42 52 588 52 width 1",
      "line 588 52 588 348 width 1",
      "line 42 348 588 348 width 1",
      "line 42 52 42 348 width 1",
      "line 42 52 39 52 width 1",
      "print 21 45.5 bold [0 m]",
      "line 42 200 39 200 width 1",
      "print 27 193.5 bold [10]",
      "line 42 348 39 348 width 1",
      "print 27 341.5 bold [20]",
      "line 42 348 42 354.5 width 1",
      "line 305.1326 348 305.1326 354.5 width 1",
      "line 568.2651 348 568.2651 354.5 width 1",
      "print 39 354.5 bold [9]",
      "print 299.1326 354.5 bold [13]",
      "print 562.2651 354.5 bold [17]",
  };
  const Texts profiles = {
      "print 54 65 colour 16711680 [P1]",
      "line 516.9542 52 286.7133 126 width 2 colour 16711680",
      "line 286.7133 126 56.47231 348 width 2 colour 16711680",
      "print 54 78 colour 65280 [P2]",
      "line 552.4772 52 322.2362 126 width 2 colour 65280",
      "line 322.2362 126 91.9952 348 width 2 colour 65280",
      "print 54 91 colour 16776960 [P3]",
      "line 588 52 357.7591 126 width 2 colour 16776960",
  };
  EXPECT_EQ(script(boxes.picSection),
            joined({kTitles, frame, profiles, {"and picDateTime", "refresh"}}));
}

TEST_F(ProfileView, AGraphForEveryProfile) {
  draw();
  EXPECT_EQ(util::LastError, "");
  const Texts first = {
      "print 117.9 39 bold [P1]",
      "line 42 52 205.8 52 width 1",
      "line 205.8 52 205.8 348 width 1",
      "line 42 348 205.8 348 width 1",
      "line 42 52 42 348 width 1",
      "line 42 52 39 52 width 1",
      "print 21 45.5 bold [0 m]",
      "line 42 200 39 200 width 1",
      "print 27 193.5 bold [10]",
      "line 42 348 39 348 width 1",
      "print 27 341.5 bold [20]",
      "line 42 348 42 354.5 width 1",
      "line 120.9398 348 120.9398 354.5 width 1",
      "line 199.8795 348 199.8795 354.5 width 1",
      "print 39 354.5 bold [9]",
      "print 114.9398 354.5 bold [13]",
      "print 193.8795 354.5 bold [17]",
      "line 184.4863 52 115.414 126 width 2 colour 16711680",
      "line 115.414 126 46.34169 348 width 2 colour 16711680",
  };
  const Texts second = {
      "print 309 39 bold [P2]",
      "line 233.1 52 396.9 52 width 1",
      "line 396.9 52 396.9 348 width 1",
      "line 233.1 348 396.9 348 width 1",
      "line 233.1 52 233.1 348 width 1",
      "line 233.1 52 230.1 52 width 1",
      "line 233.1 200 230.1 200 width 1",
      "line 233.1 348 230.1 348 width 1",
      "line 233.1 348 233.1 354.5 width 1",
      "line 312.0398 348 312.0398 354.5 width 1",
      "line 390.9796 348 390.9796 354.5 width 1",
      "print 230.1 354.5 bold [9]",
      "print 306.0398 354.5 bold [13]",
      "print 384.9796 354.5 bold [17]",
      "line 386.2432 52 317.1709 126 width 2 colour 16711680",
      "line 317.1709 126 248.0986 348 width 2 colour 16711680",
  };
  // Right of the middle the depth ticks go to the right.
  const Texts third = {
      "print 500.1 39 bold [P3]",
      "line 424.2 52 588 52 width 1",
      "line 588 52 588 348 width 1",
      "line 424.2 348 588 348 width 1",
      "line 424.2 52 424.2 348 width 1",
      "line 424.2 52 427.2 52 width 1",
      "line 424.2 200 427.2 200 width 1",
      "line 424.2 348 427.2 348 width 1",
      "line 424.2 348 424.2 354.5 width 1",
      "line 503.1398 348 503.1398 354.5 width 1",
      "line 582.0795 348 582.0795 354.5 width 1",
      "print 421.2 354.5 bold [9]",
      "print 497.1398 354.5 bold [13]",
      "print 576.0795 354.5 bold [17]",
      "line 588 52 518.9277 126 width 2 colour 16711680",
  };
  EXPECT_EQ(script(boxes.picSection),
            joined({kTitles, first, second, third, {"and picDateTime", "refresh"}}));
}

TEST_F(ProfileView, EndsOnTheVisiblePicture) {
  draw();
  EXPECT_EQ(script(boxes.picDateTime),
            (Texts{"cls", "print 6 6.5 [Date/Time: 1990-01-02 12:00:00]"}));
  EXPECT_EQ(script(boxes.Picture1), (Texts{"cls", "and picSection", "refresh"}));
  EXPECT_TRUE(boxes.picContours.operations.empty());
}

TEST_F(ProfileView, SetsTheMarginsOfItsLayout) {
  draw();
  EXPECT_EQ(plot.TopMargin, 52.0F);
  EXPECT_EQ(plot.BottomMargin, 52.0F);
  EXPECT_EQ(plot.LeftMargin, 42.0F);
  EXPECT_EQ(plot.RightMargin, 12.0F);
}

TEST_F(ProfileView, WithoutTitlesNothingOldComesThrough) {
  settings.ShowTitles = 0;
  for (const int32_t style : {0, 1}) {
    settings.ProfileStyle = style;
    draw();
    EXPECT_EQ(script(boxes.picDateTime), (Texts{"cls"}));
    EXPECT_EQ(boxes.picSection.operations.front().kind, Kind::Cls);
    for (const std::string& text : boxes.picSection.texts()) {
      EXPECT_EQ(text.find("tiny"), std::string::npos);
    }
    EXPECT_EQ(plot.TopMargin, 52.0F);
  }
}

TEST_F(ProfileView, OnlyOneIsTheStyleOfASharedGraph) {
  for (const int32_t style : {0, 2, -1}) {
    settings.ProfileStyle = style;
    draw();
    EXPECT_EQ(boxes.picSection.printOf("P2").y1, 39.0F) << style;
  }
}

TEST_F(ProfileView, LeavesTheSurfacesAsFound) {
  for (auto* box : {&boxes.picSection, &boxes.picDateTime}) {
    box->Font = {.Size = 10, .Bold = false, .Italic = true, .Underline = false};
    box->ForeColor = 12345;
    box->DrawWidth = 3;
  }
  for (const int32_t style : {0, 1}) {
    settings.ProfileStyle = style;
    draw();
    for (auto* box : {&boxes.picSection, &boxes.picDateTime}) {
      EXPECT_EQ(box->Font,
                (platform::Font{.Size = 10, .Bold = false, .Italic = true, .Underline = false}));
      EXPECT_EQ(box->ForeColor, 12345);
      EXPECT_EQ(box->DrawWidth, 3);
    }
    for (const Operation& line : boxes.picSection.of(Kind::Line)) EXPECT_LE(line.drawWidth, 2);
  }
}

TEST_F(ProfileView, EveryGraphHasItsTitleInBoldAndTheListIsPlain) {
  draw();
  for (const char* label : {"P1", "P2", "P3"}) {
    EXPECT_TRUE(boxes.picSection.printOf(label).font.Bold) << label;
  }
  settings.ProfileStyle = 1;
  draw();
  for (const char* label : {"P1", "P2", "P3"}) {
    EXPECT_FALSE(boxes.picSection.printOf(label).font.Bold) << label;
  }
}

TEST_F(ProfileView, RepaintsWithTheHeldGridAndTheCurrentRange) {
  DrawItems(1).plot_max = 25;
  ocxNetNc::TitleLines(3) = "another run";
  settings.ProfileStyle = 1;
  draw();
  boxes.picSection.printOf("another run");
  boxes.picSection.printOf("25");
  EXPECT_FLOAT_EQ(profileLines().front().x1, 288.38248F);
}

}  // namespace
