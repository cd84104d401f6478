#pragma once

#include "colorkey/KeyDialogs.h"

namespace control {

class frmOptions;

// Every dialog of the control.
class Dialogs : public ModColor::KeyDialogs {
 public:
  using ModColor::KeyDialogs::ShowModal;
  virtual void ShowModal(frmOptions& dialog) = 0;
};

}  // namespace control
