#include "activex/dialogs/HostDialogs.h"

#include "activex/Activation.h"
#include "activex/ModelessPause.h"
#include "activex/dialogs/choosers.h"
#include "activex/dialogs/frmAutoDivFace.h"
#include "activex/dialogs/frmColorKeyFace.h"
#include "activex/dialogs/frmColorRampFace.h"
#include "activex/dialogs/frmOptionsFace.h"
#include "activex/dialogs/frmVarNameFace.h"

namespace activex {

void HostDialogs::ShowModal(control::frmOptions& dialog) {
  frmOptionsFace face(dialog);
  run(face);
}

void HostDialogs::ShowModal(ModColor::frmColorKey& dialog) {
  frmColorKeyFace face(dialog);
  run(face);
}

void HostDialogs::ShowModal(ModColor::frmAutoDiv& dialog) {
  frmAutoDivFace face(dialog);
  run(face);
}

void HostDialogs::ShowModal(ModColor::frmColorRamp& dialog) {
  frmColorRampFace face(dialog);
  run(face);
}

void HostDialogs::ShowModal(ModColor::frmVarName& dialog) {
  frmVarNameFace face(dialog);
  run(face);
}

std::optional<platform::Colour> HostDialogs::ChooseColor(platform::Colour preset) {
  const ModelessPause pause(activation_.frame());
  return chooseColor(owner(), preset);
}

std::optional<std::string> HostDialogs::ChooseKewFile() {
  const ModelessPause pause(activation_.frame());
  return chooseKewFile(owner());
}

void HostDialogs::run(DialogFace& face) {
  const ModelessPause pause(activation_.frame());
  const HWND parent = owner();
  const DialogFace* const below = top_;
  top_ = &face;
  try {
    face.run(parent);
  } catch (...) {
    top_ = below;
    throw;
  }
  top_ = below;
}

HWND HostDialogs::owner() const {
  return top_ != nullptr ? top_->window() : activation_.topWindow();
}

}  // namespace activex
