#pragma once

#include "activex/dialogs/DialogFace.h"
#include "activex/dialogs/keys.h"
#include "colorkey/frmColorRamp.h"

namespace activex {

// "Color Ramp".
class frmColorRampFace final : public DialogFace, private KeyTaker {
 public:
  explicit frmColorRampFace(ModColor::frmColorRamp& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  bool takesKey(HWND control, WPARAM key) override;
  void onKey(HWND control, WPARAM key) override;
  void showSwatches();

  ModColor::frmColorRamp& dialog_;
};

}  // namespace activex
