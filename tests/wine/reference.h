#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Picture.h"
#include "control/KelvaneCtl.h"
#include "platform/gdi/GdiPictureBox.h"
#include "support/RecordingDesktop.h"

namespace winetest {

using Path = std::vector<std::pair<double, double>>;

// The same core in this program, drawing on pictures of its own: what a control's window must
// show. It starts from fresh state.
class Reference {
 public:
  Reference(int width, int height);

  control::KelvaneCtl& members() { return members_; }
  // Opens, selects, builds and draws; false when a member fails.
  bool draw(const std::string& file, const std::string& variable, const Path& path, int time);
  host::Picture picture() const;

 private:
  support::RecordingDesktop desktop_;
  platform::GdiPictureBox Picture1_, picDateTime_, picSection_, picContours_;
  control::KelvaneCtl members_;
};

// A ramp colour worked out from its description alone: three bands, from white to green, to blue,
// to red, as 0x00RRGGBB. t above 1 counts as 1.
uint32_t rampByHand(double t);

}  // namespace winetest
