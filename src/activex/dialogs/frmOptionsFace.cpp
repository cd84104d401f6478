#include "activex/dialogs/frmOptionsFace.h"

#include "activex/dialogs/ids.h"

namespace activex {

frmOptionsFace::frmOptionsFace(control::frmOptions& dialog)
    : DialogFace(dialog, "frmOptions", IDD_FRMOPTIONS), dialog_(dialog) {}

HWND frmOptionsFace::onInit() {
  problem_.setUp(item(IDC_PROBLEM));
  const int selected = IDC_OPTVIEWSTYLE0 + dialog_.optViewStyle();
  CheckRadioButton(window(), IDC_OPTVIEWSTYLE0, IDC_OPTVIEWSTYLE3, selected);
  // An option button that gets the focus is clicked by it.
  return item(selected);
}

void frmOptionsFace::onCommand(int control, int event) {
  if (event != BN_CLICKED) return;
  switch (control) {
    case IDOK:
      return dialog_.OK();
    case IDCANCEL:
      return dialog_.Cancel();
    case IDC_CMDEDITLEGEND:
      return editLegend();
    default:
      if (control >= IDC_OPTVIEWSTYLE0 && control <= IDC_OPTVIEWSTYLE3) {
        dialog_.optViewStyle_Click(control - IDC_OPTVIEWSTYLE0);
      }
  }
}

void frmOptionsFace::editLegend() {
  problem_.say({});
  const control::frmOptions::Legend outcome = dialog_.EditLegend();
  if (window() == nullptr) return;  // gone with its owner
  if (outcome == control::frmOptions::Legend::NotOpened) {
    problem_.sayFailure("The key cannot be edited");
  }
  if (outcome == control::frmOptions::Legend::NotSaved) {
    problem_.sayFailure("The key could not be saved");
  }
}

std::optional<INT_PTR> frmOptionsFace::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  return problem_.onMessage(message, wide, longer);
}

}  // namespace activex
