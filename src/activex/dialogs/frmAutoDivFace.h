#pragma once

#include "activex/dialogs/DialogFace.h"
#include "activex/dialogs/NumberFields.h"
#include "colorkey/frmAutoDiv.h"

namespace activex {

// "Auto Division".
class frmAutoDivFace final : public DialogFace {
 public:
  explicit frmAutoDivFace(ModColor::frmAutoDiv& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  ModColor::frmAutoDiv& dialog_;
  NumberFields fields_;
};

}  // namespace activex
