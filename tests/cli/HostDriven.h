#pragma once

#include <string>
#include <utility>
#include <vector>

#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"
#include "platform/cairo/CairoPictures.h"

namespace cli_test {

// A control of 400 x 300 pixels in this very process, with a data set opened and a path built:
// what the program's pictures are held against.
class HostDriven {
 public:
  HostDriven(const std::string& dataSet, const std::vector<std::pair<float, float>>& path);

  control::KelvaneCtl& control() { return control_; }
  // The picture as the bytes of a file, which is written in the folder and removed.
  std::string png(const std::string& folder) const;

 private:
  platform::CairoPictures pictures_{platform::CairoPictures::Kind::Pixels};
  cli::TerminalDesktop desktop_;
  control::KelvaneCtl control_{pictures_.pictures(), desktop_};
};

}  // namespace cli_test
