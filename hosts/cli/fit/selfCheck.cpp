#include "fit/selfCheck.h"

#include <algorithm>

#include "BlankPictureBox.h"
#include "failures.h"
#include "netcdf/ncf.h"
#include "sectionRequest.h"

namespace cli::fit {
namespace {

using ocxNetNc::ncf;

[[noreturn]] void fail(const std::string& what) {
  throw Failure("The copy was made, but the control does not take it, and it was not kept: " +
                what);
}

// A path of two cells in both directions in the middle of the grid.
void giveShortPath(control::KelvaneCtl& control) {
  const auto start = [](float first, float step, int32_t count) {
    const int32_t cell = std::max(0, std::min(count / 2, count - 2));
    return first + step * (static_cast<float>(cell) + 0.25F);
  };
  const float lon = start(ncf.lon_values(1), ncf.dlon, ncf.nlon);
  const float lat = start(ncf.lat_values(1), ncf.dlat, ncf.nlat);
  control.NewSection();
  control.AddSection(lon, lat);
  control.AddSection(lon + 2 * ncf.dlon, lat + 2 * ncf.dlat);
}

}  // namespace

void selfCheck(const std::string& path, const Plan& plan) {
  BlankPictures pictures;
  TerminalDesktop desktop;
  control::KelvaneCtl control(pictures.pictures(), desktop);
  if (const auto reason = openDataSet(control, path)) fail(*reason);
  if (ncf.has_time != 1) fail("no time axis");
  if (ncf.lon_values.size() < 2 || ncf.lat_values.size() < 2) fail("no longitude and latitude");
  giveShortPath(control);
  if (control.EndSection() != 1) fail(control.ErrorMessage());
  for (const PlanVar& variable : plan.vars) {
    if (!variable.drawn) continue;
    if (control.SetVarByName(variable.name) != 1) {
      fail(variable.name + ": " + control.ErrorMessage());
    }
    try {
      shortfallOf(control, desktop, [&] { control.SetCurrentTime(1); });
    } catch (const Failure& failure) {
      fail(variable.name + ": " + failure.what());
    }
  }
}

}  // namespace cli::fit
