#include "colorkey/frmColorKey.h"

#include <algorithm>
#include <limits>

#include "colorkey/KeyDialogs.h"
#include "colorkey/attempt.h"
#include "colorkey/frmColorRamp.h"
#include "colorkey/keyRows.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

// Rows are counted in 16 bits. Run-time error 6 for more.
int16_t counted(std::size_t rows) { return util::roundToInteger(static_cast<double>(rows)); }

}  // namespace

void frmColorKey::lblColor_Click(int32_t row) {
  if (closed() || !has(row)) return;
  const std::optional<platform::Colour> chosen = dialogs_.ChooseColor(at(row).lblColor);
  if (chosen && !closed() && has(row)) at(row).lblColor = *chosen;
}

void frmColorKey::cmdAdd() {
  if (closed()) return;
  attempt("frmColorKey cmdAdd", [&] {
    counted(rows.size() + 1);
    rows.push_back(Row(rows.back()));
    ResetScrollbar(rowsThatFit_);
    VScroll1.Value = VScroll1.Max;
  });
}

void frmColorKey::cmdDelete(int32_t row) {
  if (closed() || !has(row) || rows.size() < 2) return;
  rows.erase(rows.begin() + row);
  ResetScrollbar(rowsThatFit_);
}

void frmColorKey::cmdColorRamp() {
  if (closed()) return;
  attempt("frmColorKey cmdColorRamp", [&] {
    frmColorRamp ramp(dialogs_);
    dialogs_.ShowModal(ramp);
    if (ramp.Result() < 0 || closed()) return;
    const std::vector<platform::Colour> colours =
        colourRamp(ramp.FirstColor(), ramp.LastColor(), counted(rows.size()));
    for (std::size_t k = 0; k < rows.size(); ++k) rows[k].lblColor = colours[k];
  });
}

void frmColorKey::cmdOK() {
  if (closed() || !SaveColorKey()) return;
  result_ = 1;
  unload();
}

void frmColorKey::cmdCancel() {
  if (closed()) return;
  result_ = -1;
  unload();
}

void frmColorKey::ResetScrollbar(int32_t rowsThatFit) {
  attempt("frmColorKey ResetScrollbar", [&] {
    const int32_t count = counted(rows.size());
    constexpr int32_t kMost = std::numeric_limits<int16_t>::max();
    rowsThatFit_ = std::clamp(rowsThatFit, 1, kMost);
    VScroll1.Max = static_cast<int16_t>(std::max(count - rowsThatFit_, 0));
    VScroll1.Value = std::clamp<int16_t>(VScroll1.Value, 0, VScroll1.Max);
    VScroll1.LargeChange = static_cast<int16_t>(rowsThatFit_);
  });
}

void frmColorKey::replaceRows(std::vector<Row> replacement) {
  rows = std::move(replacement);
  VScroll1.Value = 0;
  ResetScrollbar(rowsThatFit_);
}

bool frmColorKey::has(int32_t row) const {
  return row >= 0 && static_cast<std::size_t>(row) < rows.size();
}

}  // namespace ModColor
