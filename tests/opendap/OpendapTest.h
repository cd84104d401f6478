#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DapServer.h"
#include "Place.h"
#include "control/KelvaneCtl.h"
#include "support/RecordingDesktop.h"
#include "support/RecordingPictureBox.h"

namespace opendap_test {

// A control and a server of a folder with the tiny set as tiny.nc. Whatever a test does, nothing
// may appear on the standard error and no file may be left behind.
class OpendapTest : public testing::Test {
 protected:
  OpendapTest();
  ~OpendapTest() override;
  void TearDown() override;

  std::string data(const std::string& name) const { return folder_ + "/" + name; }
  // The tiny set with a fault, as server/README.md names them.
  std::string tiny(const std::string& fault = "") const {
    return server.url(fault.empty() ? "tiny.nc" : fault + "/tiny.nc");
  }
  // Every text that came to the user's eyes: boxes, LastError, titles, what was printed.
  std::string shownTexts() const;

  // Opens a data set and draws its item along a path; the member that failed, or empty.
  std::string draw(const std::string& name, const std::string& item,
                   const std::vector<std::pair<float, float>>& path);
  // The same with the tiny set's temperature along a row of the grid.
  std::string drawTiny(const std::string& name);
  void forgetPictures() { boxes.forget(); }
  std::vector<std::string> printed() const;
  int cells() const;  // filled boxes in the section

 private:
  std::string folder_;
  std::vector<std::string> filesBefore_;

 protected:
  DapServer server;
  support::RecordingDesktop desktop;
  support::RecordingPictures boxes;
  control::KelvaneCtl ctl{boxes.pictures(), desktop};
};

// Fails a test whose operations are not those of another picture, one by one.
void expectSamePicture(const std::vector<support::Operation>& drawn,
                       const std::vector<support::Operation>& expected);

// The path of drawTiny: the second row of the grid.
inline const std::vector<std::pair<float, float>> kTinyRow = {{350.5F, -0.5F}, {357.5F, -0.5F}};
inline const std::vector<std::pair<float, float>> kTinyOblique = {{350.5F, -0.9F}, {358.0F, 0.4F}};
inline const std::vector<std::pair<float, float>> kTinyColumn = {{354.0F, -0.9F}, {354.0F, 0.4F}};

}  // namespace opendap_test
