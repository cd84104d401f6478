#pragma once

#include "activex/dialogs/DialogFace.h"
#include "control/frmOptions.h"

namespace activex {

// "Section View Options".
class frmOptionsFace final : public DialogFace {
 public:
  explicit frmOptionsFace(control::frmOptions& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;

 private:
  control::frmOptions& dialog_;
};

}  // namespace activex
