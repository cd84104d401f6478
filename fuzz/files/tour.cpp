#include "tour.h"

#include <algorithm>

#include "NullPictureBox.h"
#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "section/sectionValues.h"
#include "support/sampleSets.h"
#include "util/RuntimeError.h"

namespace fuzz {
namespace {

// Enough to meet every type of the seeds; a damaged file may have thousands.
constexpr int32_t kMostItems = 6;

class QuietDesktop : public platform::Desktop {
 public:
  void ShowMessage(std::string_view, std::string_view, platform::MessageIcon) override {}
  void SetWaitPointer(bool) override {}
};

struct NullPictures {
  NullPictureBox Picture1, picDateTime, picSection, picContours;
  platform::Pictures pictures() { return {Picture1, picDateTime, picSection, picContours}; }
};

struct Corner {
  float x, y;
};

// The places of the first and the last column and row; something else without an axis.
Corner cornerOf(bool last) {
  const auto end = [&](const ocxNetNc::CoordinateValues& values, float otherwise) {
    return values.empty() ? otherwise : values(last ? values.size() : 1);
  };
  return {end(ocxNetNc::ncf.lon_values, last ? 30.0F : 10.0F),
          end(ocxNetNc::ncf.lat_values, last ? 5.0F : -5.0F)};
}

void setPath(control::KelvaneCtl& ctl, Corner from, Corner to) {
  ctl.NewSection();
  ctl.AddSection(from.x, from.y);
  ctl.AddSection(to.x, to.y);
  ctl.EndSection();
}

void drawVariable(control::KelvaneCtl& ctl, int32_t item) {
  const Corner first = cornerOf(false);
  const Corner last = cornerOf(true);
  ctl.SetVarByOrder(item);
  ctl.DrawVerticalSection(true);
  setPath(ctl, first, {last.x, first.y});
  ctl.Draw();
  setPath(ctl, first, {first.x, last.y});
  ctl.Draw();
  setPath(ctl, first, last);
  ctl.Draw();
  try {
    ctl.AdvanceTime(1);
  } catch (const util::RuntimeError&) {
    // Its host's to handle.
  }
  ctl.DrawProfile(true);
  ctl.ReDraw();
}

}  // namespace

Outcome tour(const std::string& name) {
  support::resetState();
  QuietDesktop desktop;
  NullPictures boxes;
  control::KelvaneCtl ctl(boxes.pictures(), desktop);
  ctl.Resize(240, 180);
  const bool opened = ctl.NcFile(name) == 1;
  const int32_t items = std::min(ctl.NumDrawAbleItems(), kMostItems);
  for (int32_t item = 1; item <= items; ++item) drawVariable(ctl, item);
  if (items == 0) drawVariable(ctl, 1);
  const bool drawn = !KelvaneMain::section_values.empty();
  support::resetState();
  return drawn ? Outcome::Drawn : opened ? Outcome::Opened : Outcome::Refused;
}

}  // namespace fuzz
