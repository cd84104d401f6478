#include "FaultTest.h"

#include <netcdf.h>

#include "netcdf/NetCDF.h"
#include "netcdf/ncf.h"

namespace opendap_test {

using Message = support::RecordingDesktop::Message;

void waitAsEverywhere() { NetCDF::dapLimits(2, 2, 3); }

FaultTest::FaultTest() {
  waitAsEverywhere();
  EXPECT_EQ(drawTiny(tiny()), "");
  before_ = boxes.picSection.operations;
  printedBefore_ = printed();
  boxes.forget();
}

void FaultTest::expectToldOf(int status, const std::vector<std::string>& words) {
  const std::string text = ctl.ErrorMessage();
  const std::string libraryText = nc_strerror(status);
  EXPECT_EQ(ocxNetNc::ncf.NcStatus, status) << text;
  EXPECT_EQ(text.substr(0, libraryText.size() + 1), libraryText + "\n");
  EXPECT_NE(text.find("Status " + std::to_string(status)), std::string::npos) << text;
  for (const std::string& word : words) EXPECT_NE(text.find(word), std::string::npos) << text;
  EXPECT_EQ(desktop.messages, (std::vector<Message>{{libraryText, "NetCDF Error",
                                                     platform::MessageIcon::Critical}}));
  EXPECT_FALSE(desktop.waiting);
}

void FaultTest::expectNextOneWorks() {
  boxes.forget();
  EXPECT_EQ(drawTiny(tiny()), "");
  expectSamePicture(boxes.picSection.operations, before_);
}

FaultTest::Watch::~Watch() {
  // Two seconds are the limit here; a busy machine may take its time besides.
  EXPECT_LT(std::chrono::steady_clock::now() - begin_, std::chrono::seconds(15));
}

void PrintTo(const Told& told, std::ostream* out) { *out << told.title; }

}  // namespace opendap_test
