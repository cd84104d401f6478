#pragma once

#include <optional>
#include <string>

#include "platform/PictureBox.h"

namespace ModColor {

class frmAutoDiv;
class frmColorKey;
class frmColorRamp;
class frmVarName;

// How the dialogs of the colour key reach the user: one implementation a host. A ShowModal
// returns once the dialog is closed.
class KeyDialogs {
 public:
  virtual ~KeyDialogs() = default;
  virtual void ShowModal(frmColorKey& dialog) = 0;
  virtual void ShowModal(frmAutoDiv& dialog) = 0;
  virtual void ShowModal(frmColorRamp& dialog) = 0;
  virtual void ShowModal(frmVarName& dialog) = 0;
  // The platform's colour chooser, preset to a colour; nothing when the user cancels.
  virtual std::optional<platform::Colour> ChooseColor(platform::Colour preset) = 0;
  // The platform's open-file dialog for KEW files; nothing when the user cancels.
  virtual std::optional<std::string> ChooseKewFile() = 0;
};

}  // namespace ModColor
