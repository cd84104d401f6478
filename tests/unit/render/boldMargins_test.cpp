#include "HeldSection.h"
#include "render/drawVSection.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "util/lastError.h"

namespace {

using namespace KelvaneMain;

// A surface like a screen's, on which bold letters are wider than plain ones.
class WideBoldBox : public support::RecordingPictureBox {
 public:
  using RecordingPictureBox::RecordingPictureBox;
  float TextWidth(std::string_view text) const override {
    return Font.Bold ? 7.0F * static_cast<float>(text.size())
                     : RecordingPictureBox::TextWidth(text);
  }
};

class BoldMargins : public render_tests::HeldSection {
 protected:
  WideBoldBox wide{"picSection"};
  platform::Pictures widePictures{boxes.Picture1, boxes.picDateTime, wide, boxes.picContours};
};

TEST_F(BoldMargins, HaveRoomForTheBoldDepthLabels) {
  // The axis labels are bold with and without the titles above them.
  for (const int32_t showTitles : {1, 0}) {
    SCOPED_TRACE(showTitles);
    settings.ShowTitles = showTitles;
    plot = {};
    DrawVSection(widePictures);
    EXPECT_EQ(util::LastError, "");
    EXPECT_EQ(plot.LeftMargin, 56.0F);
    EXPECT_EQ(plot.RightMargin, 49.0F);
    EXPECT_EQ(WorldToSurface(0, 0).x, 56.0F);
    EXPECT_EQ(WorldToSurface(7, 0).x, 495.0F);
    EXPECT_FALSE(wide.Font.Bold);
  }
}

}  // namespace
