#include "activex/dialogs/frmOptionsFace.h"

#include "activex/dialogs/ids.h"

namespace activex {

frmOptionsFace::frmOptionsFace(control::frmOptions& dialog)
    : DialogFace(dialog, "frmOptions", IDD_FRMOPTIONS), dialog_(dialog) {}

HWND frmOptionsFace::onInit() {
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
      return dialog_.EditLegend();
    default:
      if (control >= IDC_OPTVIEWSTYLE0 && control <= IDC_OPTVIEWSTYLE3) {
        dialog_.optViewStyle_Click(control - IDC_OPTVIEWSTYLE0);
      }
  }
}

}  // namespace activex
