#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/KelvaneCtl.h"
#include "section/sectionPath.h"
#include "support/RecordingDesktop.h"
#include "support/RecordingPictureBox.h"
#include "support/TempFolder.h"
#include "util/RuntimeError.h"

// A control on recording pictures of 600 x 400 pixels, in a freshly loaded library.
class ControlTest : public testing::Test {
 protected:
  ControlTest();
  ~ControlTest() override;

  // The name of a new tiny set in the test's folder.
  std::string tinySet(const std::string& name = "tiny.nc") const;
  int16_t sectionThrough(const std::vector<KelvaneMain::SectionPoint>& points);
  // Opens the tiny set and builds a section along its third latitude.
  void openAlongLatitude();
  // The number of the run-time error that a call lets out; 0 for none.
  template <class Call>
  static int errorOf(Call call) {
    try {
      call();
    } catch (const util::RuntimeError& error) {
      return error.number();
    }
    return 0;
  }

  support::TempFolder folder;
  support::RecordingDesktop desktop;
  support::RecordingPictures boxes;
  control::KelvaneCtl control{boxes.pictures(), desktop};
};
