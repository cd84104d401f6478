#pragma once

#include "activex/dialogs/DialogFace.h"
#include "colorkey/frmVarName.h"

namespace activex {

// "Choose Variable". A double click on a name is OK.
class frmVarNameFace final : public DialogFace {
 public:
  explicit frmVarNameFace(ModColor::frmVarName& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;

 private:
  // The list's horizontal scroll bar reaches as far as its longest name.
  void fitWidth(HWND list) const;

  ModColor::frmVarName& dialog_;
};

}  // namespace activex
