#pragma once

#include <windows.h>

#include "control/Dialogs.h"

namespace activex {

class Activation;
class DialogFace;

// The dialogs of a control as windows: owned by the host's top window or by the dialog that opened
// them, the host told to stand still meanwhile.
class HostDialogs final : public control::Dialogs {
 public:
  explicit HostDialogs(const Activation& activation) : activation_(activation) {}

  void ShowModal(control::frmOptions& dialog) override;
  void ShowModal(ModColor::frmColorKey& dialog) override;
  void ShowModal(ModColor::frmAutoDiv& dialog) override;
  void ShowModal(ModColor::frmColorRamp& dialog) override;
  void ShowModal(ModColor::frmVarName& dialog) override;
  std::optional<platform::Colour> ChooseColor(platform::Colour preset) override;
  std::optional<std::string> ChooseKewFile() override;

 private:
  void run(DialogFace& face);
  HWND owner() const;

  const Activation& activation_;
  const DialogFace* top_ = nullptr;  // the last of those that are up
};

}  // namespace activex
