#include "support/NcMaker.h"
#include "unit/control/ControlTest.h"

namespace {

// A single level at the surface has no height to draw: the mapping of every drawing says so.
class OwnDesktop : public ControlTest {
 protected:
  std::string surfaceSet() const {
    const std::string path = folder.file("surface.nc");
    support::NcMaker nc(path);
    const int t = nc.dim("time", 1), z = nc.dim("depth", 1);
    const int y = nc.dim("lat", 4), x = nc.dim("lon", 6);
    const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var("depth", NC_FLOAT, {z});
    const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    const int values = nc.var("temp", NC_FLOAT, {t, z, y, x});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    nc.put(ts, {0});
    nc.put(zs, {0});
    nc.put(ys, {-1, 0, 1, 2});
    nc.put(xs, {10, 11, 12, 13, 14, 15});
    nc.put(values, std::vector<double>(24, 4.5));
    return path;
  }
  // What one call showed on the control's desktop; nothing may reach the other control's.
  template <class Call>
  void expectOneMessage(const char* what, Call call) {
    SCOPED_TRACE(what);
    desktop.messages.clear();
    call();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_TRUE(desktop.messages[0].text.starts_with("[Cartesian] scale parameters out of range"))
        << desktop.messages[0].text;
    EXPECT_EQ(desktop.messages[0].caption, "KelvaneCtl");
    EXPECT_TRUE(otherDesktop.messages.empty());
    EXPECT_FALSE(desktop.waiting);
  }

  support::RecordingDesktop otherDesktop;
  support::RecordingPictures otherBoxes;
  control::KelvaneCtl other{otherBoxes.pictures(), otherDesktop};
};

TEST_F(OwnDesktop, ShowsTheMessagesAndTheWaitPointerOfEveryDrawing) {
  ASSERT_EQ(control.NcFile(surfaceSet()), 1) << control.ErrorMessage();
  ASSERT_EQ(sectionThrough({{10, 0}, {14, 0}}), 1) << control.ErrorMessage();
  desktop.waits = 0;
  expectOneMessage("Draw", [&] { control.Draw(); });
  EXPECT_EQ(desktop.waits, 1);
  expectOneMessage("ReDraw", [&] { control.ReDraw(); });
  expectOneMessage("Resize", [&] { control.Resize(320, 200); });
  EXPECT_EQ(desktop.waits, 1);  // only reading waits
  EXPECT_EQ(otherDesktop.waits, 0);
}

}  // namespace
