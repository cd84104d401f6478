#pragma once

#include "platform/PictureBox.h"

namespace KelvaneMain {

// Bold lettering for the extent of an axis. What is printed after an axis is plain, whatever it
// was before.
class BoldLettering {
 public:
  explicit BoldLettering(platform::PictureBox& surface) : surface_(surface) {
    surface_.Font.Bold = true;
  }
  ~BoldLettering() { surface_.Font.Bold = false; }
  BoldLettering(const BoldLettering&) = delete;
  BoldLettering& operator=(const BoldLettering&) = delete;

 private:
  platform::PictureBox& surface_;
};

}  // namespace KelvaneMain
