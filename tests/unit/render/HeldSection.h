#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/RecordingDesktop.h"
#include "support/RecordingPictureBox.h"
#include "support/sampleSets.h"

namespace render_tests {

// A section as a read leaves it, without a data set: seven columns, levels at 0, 50 and 200 m,
// 999.97 km, values 9.22..17.3 with one missing at the bottom, titles and settings as after an
// opening. Each test changes what it is about.
class HeldSection : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override { support::resetState(); }

  // Another grid in place of the held one: depths[0] is level 1, every value is at the middle
  // of the plotting range.
  void holdGrid(int32_t ncols, const std::vector<double>& depths);
  // A path along one latitude row (lon 350, 352, .. from column 1) or one longitude column
  // (lat -1, -0.5, .. from column 1).
  void alongLatitude(int32_t ncols);
  void alongLongitude(int32_t ncols);

  support::RecordingDesktop desktop;
  support::RecordingPictures boxes;
  platform::Pictures pictures = boxes.pictures();

 private:
  platform::DesktopScope scope_{desktop};
};

// Levels of seven columns.
extern const std::vector<std::vector<float>> kHeldValues;

}  // namespace render_tests
