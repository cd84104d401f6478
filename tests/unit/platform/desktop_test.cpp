#include "platform/Desktop.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/centerForm.h"
#include "support/RecordingDesktop.h"

namespace {

using support::RecordingDesktop;

TEST(Desktop, BeforeAnyControlMessagesGoNowhere) {
  platform::desktop().ShowMessage("text", "caption", platform::MessageIcon::Critical);
  platform::desktop().SetWaitPointer(true);
  platform::desktop().SetWaitPointer(false);
}

TEST(Desktop, TheInnermostScopeIsTheCurrentOne) {
  RecordingDesktop outer, inner;
  {
    const platform::DesktopScope outerScope(outer);
    {
      const platform::DesktopScope innerScope(inner);
      platform::desktop().ShowMessage("in", "a", platform::MessageIcon::None);
    }
    platform::desktop().ShowMessage("out", "b", platform::MessageIcon::Information);
  }
  platform::desktop().ShowMessage("nobody", "c", platform::MessageIcon::None);
  using Message = RecordingDesktop::Message;
  EXPECT_EQ(inner.messages, (std::vector<Message>{{"in", "a", platform::MessageIcon::None}}));
  EXPECT_EQ(outer.messages,
            (std::vector<Message>{{"out", "b", platform::MessageIcon::Information}}));
}

TEST(Desktop, TheWaitPointerEndsWithItsScopeHoweverThatEnds) {
  RecordingDesktop desktop;
  const platform::DesktopScope scope(desktop);
  try {
    const platform::WaitPointer wait;
    EXPECT_TRUE(desktop.waiting);
    throw std::runtime_error("failed in the middle");
  } catch (const std::runtime_error&) {
  }
  EXPECT_FALSE(desktop.waiting);
  EXPECT_EQ(desktop.waits, 1);
}

class PlacedForm : public platform::Form {
 public:
  PlacedForm(platform::WindowState state, double width, double height)
      : state_(state), width_(width), height_(height) {}
  platform::WindowState WindowState() const override { return state_; }
  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void MoveTo(int32_t toLeft, int32_t toTop) override {
    left = toLeft;
    top = toTop;
  }
  int32_t left = -999, top = -999;

 private:
  platform::WindowState state_;
  double width_, height_;
};

TEST(CenterForm, HalvesTheRoundedDifference) {
  struct Row {
    double width, height;
    int32_t left, top;
  };
  const Row rows[] = {{400, 300, 312, 234},
                      {401, 301, 311, 233},      // 623 and 467 halved as integers
                      {400.5, 300.5, 312, 234},  // 623.5 -> 624, 467.5 -> 468
                      {401.5, 301.5, 311, 233},  // 622.5 -> 622, 466.5 -> 466
                      {1025, 769, 0, 0},         // -1 halves to 0
                      {1124, 868, -50, -50}};
  for (const Row& row : rows) {
    PlacedForm form(platform::WindowState::Normal, row.width, row.height);
    platform::CenterForm(form, {1024, 768});
    EXPECT_EQ(form.left, row.left) << row.width;
    EXPECT_EQ(form.top, row.top) << row.height;
  }
}

TEST(CenterForm, LeavesAMinimisedOrMaximisedDialogAlone) {
  for (const auto state : {platform::WindowState::Minimised, platform::WindowState::Maximised}) {
    PlacedForm form(state, 400, 300);
    platform::CenterForm(form, {1024, 768});
    EXPECT_EQ(form.left, -999);
    EXPECT_EQ(form.top, -999);
  }
}

}  // namespace
