#include "controlOutcome.h"

#include "BlankPictureBox.h"
#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "sectionRequest.h"
#include "support/sampleSets.h"

namespace diagnosis_test {
namespace {

using cli::diagnosis::Verdict;
using ocxNetNc::ncf;

// From the first cell to the end of the last, also where the grid turned out to have no cells.
void pathOverTheGrid(control::KelvaneCtl& control) {
  control.NewSection();
  if (ncf.lon_values.empty() || ncf.lat_values.empty()) return;
  control.AddSection(ncf.lon_values(1), ncf.lat_values(1));
  control.AddSection(ncf.lon_values(ncf.lon_values.size()) + ncf.dlon,
                     ncf.lat_values(ncf.lat_values.size()) + ncf.dlat);
}

bool reads(control::KelvaneCtl& control, const std::string& item) {
  ncf.grid_order = -1;  // as for the first item of a session
  return control.SetVarByName(item) == 1 && KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1) > 0;
}

}  // namespace

Outcome controlOutcome(const std::string& dataSet) {
  support::resetState();
  cli::BlankPictures pictures;
  cli::TerminalDesktop desktop;
  control::KelvaneCtl control(pictures.pictures(), desktop);
  const platform::DesktopScope scope(desktop);
  Outcome outcome;
  if (control.NcFile(dataSet) != 1) return outcome;
  for (int32_t n = 1; n <= control.NumDrawAbleItems(); ++n) {
    outcome.items.insert(control.ItemName(n));
  }
  outcome.verdict = Verdict::NoSection;
  pathOverTheGrid(control);
  if (control.EndSection() != 1) return outcome;
  outcome.verdict = Verdict::NoValues;
  for (const std::string& item : outcome.items) {
    if (reads(control, item)) outcome.read.insert(item);
  }
  if (outcome.read.empty()) return outcome;
  ncf.grid_order = -1;
  control.SetVarByName(*outcome.read.begin());
  const std::string shortfall = cli::shortfallOf(control, desktop, [&] { control.Draw(); });
  outcome.verdict = shortfall.empty() ? Verdict::Drawable : Verdict::NotDrawn;
  return outcome;
}

}  // namespace diagnosis_test
