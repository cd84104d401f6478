#include "failing/memory/MemoryTest.h"
#include "render/settings.h"

namespace {

class Drawing : public failing::MemoryTest {
 protected:
  // A picture is there already: what nothing was ever read for has a failure of its own.
  Member drawing(const std::function<void()>& before = [] {}) {
    return {[this, before] {
              openAlongLatitude();
              shown.Draw();
              before();
            },
            [this] {
              shown.Draw();
              return 1;
            }};
  }
  void slantingPath() {
    shown.NewSection();
    shown.AddSection(350, -1);
    shown.AddSection(355, 0);
    shown.AddSection(357, 0.4F);
    ASSERT_EQ(shown.EndSection(), 1);
  }
};

TEST_F(Drawing, Draw) { inEveryShortage(drawing()); }

TEST_F(Drawing, DrawForTheFirstTime) {
  Member member = drawing();
  member.before = [&] { openAlongLatitude(); };
  member.alsoTold = "DrawVSection KelvaneMain: 9, KelvaneCtl, Subscript out of range";
  inEveryShortage(member);
}

TEST_F(Drawing, DrawAPathThatIsReadColumnByColumn) {
  inEveryShortage(drawing([&] { slantingPath(); }));
}

TEST_F(Drawing, DrawContourLines) {
  inEveryShortage(drawing([] { KelvaneMain::settings.ViewStyle = 1; }));
}

TEST_F(Drawing, DrawInTheColoursOfAKey) {
  inEveryShortage(drawing([&] {
    shown.AddColorKey(0, 10, 255);
    shown.AddColorKey(10, 20, 65280);
    shown.UseColorKey(true);
  }));
}

TEST_F(Drawing, DrawProfiles) {
  for (const int32_t style : {0, 1}) {
    inEveryShortage(drawing([&] {
      slantingPath();
      KelvaneMain::settings.ProfileStyle = style;
      shown.DrawProfile(true);
    }));
  }
}

TEST_F(Drawing, ReDraw) {
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.Draw();
                   },
                   [&] {
                     shown.ReDraw();
                     return 1;
                   }});
}

TEST_F(Drawing, AdvanceTime) {
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.Draw();
                   },
                   [&] { return shown.AdvanceTime(1); }, RunTimeError::Allowed, 2});
}

TEST_F(Drawing, SetCurrentTime) {
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.Draw();
                   },
                   [&] {
                     shown.SetCurrentTime(2);
                     return 1;
                   }});
}

TEST_F(Drawing, AnotherSize) {
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.Draw();
                     shown.Resize(600, 400);
                   },
                   [&] {
                     shown.Resize(500, 300);
                     return 1;
                   }});
}

}  // namespace
