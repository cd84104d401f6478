#include "colorkey/frmColorRamp.h"

#include "colorkey/KeyDialogs.h"

namespace ModColor {

void frmColorRamp::lblFirstColor_Click() { chooseInto(firstColor_); }

void frmColorRamp::lblLastColor_Click() { chooseInto(lastColor_); }

void frmColorRamp::chooseInto(platform::Colour& swatch) {
  if (closed()) return;
  const std::optional<platform::Colour> chosen = dialogs_.ChooseColor(swatch);
  if (chosen && !closed()) swatch = *chosen;
}

void frmColorRamp::OK() {
  if (closed()) return;
  result_ = 1;
  unload();
}

void frmColorRamp::Cancel() {
  if (closed()) return;
  result_ = -1;
  unload();
}

}  // namespace ModColor
