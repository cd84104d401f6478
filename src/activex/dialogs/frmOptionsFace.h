#pragma once

#include "activex/dialogs/DialogFace.h"
#include "activex/dialogs/ProblemLine.h"
#include "control/frmOptions.h"

namespace activex {

// "Section View Options".
class frmOptionsFace final : public DialogFace {
 public:
  explicit frmOptionsFace(control::frmOptions& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void editLegend();

  control::frmOptions& dialog_;
  ProblemLine problem_;
};

}  // namespace activex
