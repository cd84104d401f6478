#include "diagnosis/trial.h"

#include <algorithm>

#include "failures.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "sectionRequest.h"

namespace cli::diagnosis {
namespace {

using ocxNetNc::ncf;

// Three cells, or as many as there are, from the middle of the grid to the north-east.
void givePath(control::KelvaneCtl& control) {
  control.NewSection();
  if (ncf.lon_values.empty() || ncf.lat_values.empty()) return;
  const auto point = [](const ocxNetNc::CoordinateValues& values, float spacing, double cells) {
    const int32_t middle = std::max(values.size() / 2, 1);
    const double place =
        static_cast<double>(values(1)) + static_cast<double>(spacing) * (middle - 1 + cells);
    return static_cast<float>(place);
  };
  for (const double cells : {0.5, 2.5}) {
    control.AddSection(point(ncf.lon_values, ncf.dlon, cells),
                       point(ncf.lat_values, ncf.dlat, cells));
  }
}

}  // namespace

Trial tryShortSection(control::KelvaneCtl& control, TerminalDesktop& desktop,
                      const std::string& item) {
  Trial trial;
  givePath(control);
  trial.verdict = Verdict::NoSection;
  if (control.EndSection() != 1) {
    trial.message = control.ErrorMessage();
    return trial;
  }
  trial.verdict = Verdict::NoValues;
  if (!item.empty() && control.SetVarByName(item) != 1) {
    trial.message = control.ErrorMessage();
    return trial;
  }
  trial.item = shownName();
  trial.columns = KelvaneMain::section.ncols;
  // The drawing would go on with what is held and leave another message.
  const platform::DesktopScope scope(desktop);
  if (KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1) < 0) {
    trial.message = control.ErrorMessage();
    return trial;
  }
  try {
    trial.message = shortfallOf(control, desktop, [&] { control.Draw(); });
  } catch (const Failure& failure) {
    trial.message = failure.what();
    return trial;
  }
  trial.verdict = trial.message.empty() ? Verdict::Drawable : Verdict::NotDrawn;
  return trial;
}

}  // namespace cli::diagnosis
