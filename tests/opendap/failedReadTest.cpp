#include <netcdf.h>

#include <filesystem>

#include "FaultTest.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "support/NcMaker.h"

// Servers that fail when the section is read: the data set has been opened, its coordinates are
// known.
namespace opendap_test {
namespace {

class FailedRead : public FaultTest, public testing::WithParamInterface<Told> {
 protected:
  // Opens the tiny set at an address whose second request for data and all later ones fail.
  void openFaulty() {
    ASSERT_EQ(drawn(tiny(GetParam().fault)), 1) << ctl.ErrorMessage();
    boxes.forget();
  }
  int drawn(const std::string& name) {
    if (ctl.NcFile(name) != 1) return -1;
    ctl.NewSection();
    for (const auto& [lon, lat] : kTinyRow) ctl.AddSection(lon, lat);
    return ctl.EndSection() == 1 ? ctl.SetVarByName("temp") : int16_t{-1};
  }
};

TEST_P(FailedRead, IsToldAndPaintsNoValues) {
  openFaulty();
  {
    const Watch watch;
    ctl.Draw();
  }
  expectToldOf(GetParam().status, GetParam().words);
  // What was asked of the library stands between its own text and the advice.
  const std::string text = ctl.ErrorMessage();
  const std::size_t asked = text.find("\nnvar, tcount= ");
  EXPECT_NE(asked, std::string::npos) << text;
  EXPECT_LT(asked, text.find("Status ")) << text;
  EXPECT_EQ(ocxNetNc::ncf.NcId, -1);
  EXPECT_EQ(ocxNetNc::TitleLines(1), "tiny.nc");
  expectNextOneWorks();
}

const auto kName = [](const auto& tested) { return std::string(tested.param.title); };

INSTANTIATE_TEST_SUITE_P(
    NoData, FailedRead,
    testing::Values(Told{"Refused", "refuse.dods.2", NC_EIO, {"127.0.0.1"}},
                    Told{"TornDown", "reset.dods.2", NC_EIO, {"127.0.0.1"}},
                    Told{"Stuck", "stuck.dods.2", NC_EIO, {"no answer", "second"}},
                    Told{"StuckHalfway", "stuckhalf.dods.2", NC_EIO, {"127.0.0.1"}},
                    Told{"Slower", "slow-4000.dods.2", NC_EIO, {"127.0.0.1"}}),
    kName);

INSTANTIATE_TEST_SUITE_P(
    CutShort, FailedRead,
    testing::Values(Told{"ThreeBytes", "cut-3.dods.2", NC_EDAP, {"ended too early"}},
                    Told{"SevenBytes", "cut-7.dods.2", NC_EDAP, {}},
                    Told{"ThreeBytesUntold", "cutuntold-3.dods.2", NC_EDAP, {"ended too early"}},
                    Told{"SevenBytesUntold", "cutuntold-7.dods.2", NC_EDAP, {"ended too early"}},
                    Told{"ThreeBytesOfTheChunks", "cutchunked-3.dods.2", NC_EDAP, {}},
                    Told{"SevenBytesTornDown", "cutreset-7.dods.2", NC_EIO, {"127.0.0.1"}},
                    Told{"Half", "half.dods.2", NC_EDAP, {}},
                    Told{"HalfUntold", "halfuntold.dods.2", NC_EDATADDS, {}},
                    Told{"HalfOfTheChunks", "halfchunked.dods.2", NC_EDAP, {}},
                    Told{"TooShortALength", "short-7.dods.2", NC_EDAP, {"ended too early"}},
                    Told{"TooLongALength", "long-7.dods.2", NC_EDAP, {}}),
    kName);

INSTANTIATE_TEST_SUITE_P(
    Answered, FailedRead,
    testing::Values(Told{"LoginPage", "html.dods.2", NC_EDATADDS, {"Please sign in"}},
                    Told{"Nothing", "empty.dods.2", NC_EDATADDS, {}},
                    Told{"Garbage", "garbage-3.dods.2", NC_EDATADDS, {}},
                    Told{"Unauthorized", "401.dods.2", NC_EACCESS, {"401"}},
                    Told{"TooLarge", "403.dods.2", NC_EAUTH, {"403", "Request too big"}},
                    Told{"NotFound", "404.dods.2", NC_ENOTFOUND, {"404"}},
                    Told{"ServerError", "500.dods.2", NC_EDAPSVC, {"The archive is being moved"}},
                    Told{"Unavailable", "503.dods.2", NC_EDAPSVC, {"503"}},
                    Told{"ErrorAsAnswer", "error.dods.2", NC_EDAPSVC, {"The disk is off line"}},
                    Told{"Loop", "loop.dods.2", NC_EIO, {"redirect"}}),
    kName);

class Recovering : public FaultTest {};

// All small variables are fetched ahead in one request. A server that refuses only that one serves
// every variable by itself.
TEST_F(Recovering, WhenOnlyTheFetchingAheadFails) {
  EXPECT_EQ(drawTiny(tiny("500.dods.1.1")), "");
  EXPECT_EQ(drawTiny(tiny("500.dods.2.2")), "");
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Recovering, AsSoonAsTheServerDoes) {
  // The first two requests are those of the opening and of the first picture; the next two, one
  // ahead for all small variables and one for the section, fail.
  ASSERT_EQ(drawTiny(tiny("500.dods.3.4")), "");
  const std::vector<support::Operation> first = boxes.picSection.operations;
  EXPECT_EQ(ctl.AdvanceTime(1), 2);
  expectToldOf(NC_EDAPSVC, {"The archive is being moved"});
  boxes.forget();
  ctl.SetCurrentTime(1);
  EXPECT_EQ(desktop.messages.size(), 1U);
  expectSamePicture(boxes.picSection.operations, first);
}

// Nobody waits twice for one picture.
TEST_F(Recovering, FromATimeOutOnlyOnce) {
  ASSERT_EQ(drawTiny(tiny("stuck.dods.3")), "");
  const int before = server.count("dods");
  const Watch watch;
  ctl.AdvanceTime(1);
  expectToldOf(NC_EIO, {"second"});
  EXPECT_EQ(server.count("dods"), before + 1);
}

TEST_F(Recovering, AfterTheServerDied) {
  const std::string folder = std::filesystem::path(data("")).parent_path().string();
  auto mortal = std::make_unique<DapServer>(folder, Place::here().own("mortal.log"));
  ASSERT_EQ(ctl.NcFile(mortal->url("die.dods.2/tiny.nc")), 1) << ctl.ErrorMessage();
  ctl.NewSection();
  for (const auto& [lon, lat] : kTinyRow) ctl.AddSection(lon, lat);
  ASSERT_EQ(ctl.EndSection(), 1);
  boxes.forget();
  const Watch watch;
  ctl.Draw();
  expectToldOf(NC_EIO, {"127.0.0.1"});
  ctl.AdvanceTime(1);  // nobody listens any more
  EXPECT_EQ(desktop.messages.size(), 2U);
  EXPECT_EQ(ctl.ErrorMessage().find(nc_strerror(NC_EIO)), 0U) << ctl.ErrorMessage();
  mortal.reset();
  expectNextOneWorks();
}

}  // namespace
}  // namespace opendap_test
