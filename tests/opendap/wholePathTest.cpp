#include <functional>

#include "OpendapTest.h"
#include "colorkey/colorKey.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "support/sampleSets.h"

// A host's whole way with a data set at an address: the pictures are those of the file.
namespace opendap_test {
namespace {

using support::Operation;

struct Picture {
  std::vector<Operation> section, date, contours, shown;
};

class WholePath : public OpendapTest {
 protected:
  // What has been drawn since the last call.
  Picture take() {
    Picture picture{boxes.picSection.operations, boxes.picDateTime.operations,
                    boxes.picContours.operations, boxes.Picture1.operations};
    boxes.forget();
    return picture;
  }
  // Both do the same steps; every picture must be the same.
  void expectSame(const std::function<void(const std::string&)>& steps) {
    steps(data("tiny.nc"));
    const Picture local = take();
    ASSERT_GT(local.section.size(), 20U);
    support::resetState();
    steps(tiny());
    const Picture remote = take();
    expectSamePicture(remote.section, local.section);
    expectSamePicture(remote.date, local.date);
    expectSamePicture(remote.contours, local.contours);
    expectSamePicture(remote.shown, local.shown);
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_FALSE(desktop.waiting);
  }
};

TEST_F(WholePath, AlongARow) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "temp", kTinyRow), "");
    EXPECT_EQ(KelvaneMain::section.section_kind, KelvaneMain::kSameLatitude);
  });
}

TEST_F(WholePath, AlongAColumn) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "salt", kTinyColumn), "");
    EXPECT_EQ(KelvaneMain::section.section_kind, KelvaneMain::kSameLongitude);
  });
}

TEST_F(WholePath, AlongAnyPath) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "temp", kTinyOblique), "");
    EXPECT_EQ(KelvaneMain::section.section_kind, KelvaneMain::kGeneralPath);
  });
}

TEST_F(WholePath, ThroughTheTimeSteps) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "temp", kTinyOblique), "");
    EXPECT_EQ(ctl.AdvanceTime(1), 2);
    EXPECT_EQ(ctl.AdvanceTime(1), 1);
    ctl.SetCurrentTime(2);
    ctl.ReDraw();
  });
}

TEST_F(WholePath, AsProfiles) {
  expectSame([&](const std::string& name) {
    ctl.DrawProfile(true);
    EXPECT_EQ(draw(name, "salt", kTinyOblique), "");
  });
}

TEST_F(WholePath, FromOneVariableToAnother) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "temp", kTinyRow), "");
    EXPECT_EQ(ctl.SetVarByOrder(2), 1);
    ctl.Draw();
    EXPECT_EQ(ctl.SetVarByName("temp"), 1);
    ctl.Draw();
  });
}

TEST_F(WholePath, WithAColourKey) {
  expectSame([&](const std::string& name) {
    EXPECT_EQ(draw(name, "temp", kTinyRow), "");
    ctl.NewColorKey();
    ctl.AddColorKey(0, 10, 255);
    ctl.AddColorKey(10, 20, 65280);
    ctl.UseColorKey(true);
    ctl.ReDraw();
  });
}

// The reading that InitColorKey needs works as on a file; its colours are random, and there is no
// place for a key file beside an address.
TEST_F(WholePath, WithAKeyOfItsOwnThatIsNotSaved) {
  EXPECT_EQ(drawTiny(tiny()), "");
  const int before = server.count("dods");
  ctl.InitColorKey();
  EXPECT_GT(server.count("dods"), before);
  EXPECT_EQ(ModColor::ColorKey.nDivision, 10);
  EXPECT_TRUE(ctl.UseColorKey());
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(ctl.ErrorMessage().find("ModColor SaveKEW"), 0U) << ctl.ErrorMessage();
}

// Every read opens the address anew and closes it: a data set may grow, and nothing is kept open
// between two members.
TEST_F(WholePath, OpensTheAddressAnewForEveryRead) {
  ASSERT_EQ(ctl.NcFile(tiny()), 1);
  EXPECT_EQ(ocxNetNc::ncf.NcId, -1);
  int catalogues = server.count("das");
  EXPECT_EQ(catalogues, 1);
  for (int read = 0; read < 3; ++read) {
    EXPECT_EQ(draw(tiny(), "temp", kTinyRow), "");
    EXPECT_EQ(ocxNetNc::ncf.NcId, -1);
    EXPECT_EQ(server.count("das"), catalogues += 2);
  }
  ctl.ReDraw();
  EXPECT_EQ(server.count("das"), catalogues);
}

TEST_F(WholePath, BackAndForthBetweenFileAndAddress) {
  EXPECT_EQ(drawTiny(data("tiny.nc")), "");
  const Picture first = take();
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(drawTiny(tiny()), "");
    expectSamePicture(take().section, first.section);
    EXPECT_EQ(drawTiny(data("tiny.nc")), "");
    expectSamePicture(take().section, first.section);
  }
}

TEST_F(WholePath, ByEveryKindOfAddress) {
  const std::string plain = tiny();
  for (const std::string& name :
       {plain, "dods" + plain.substr(4), plain + "#noprefetch", "[noprefetch]" + plain}) {
    EXPECT_EQ(drawTiny(name), "") << name;
  }
}

}  // namespace
}  // namespace opendap_test
