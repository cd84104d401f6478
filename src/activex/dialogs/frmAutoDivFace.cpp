#include "activex/dialogs/frmAutoDivFace.h"

#include "activex/dialogs/ids.h"

namespace activex {

frmAutoDivFace::frmAutoDivFace(ModColor::frmAutoDiv& dialog)
    : DialogFace(dialog, "frmAutoDiv", IDD_FRMAUTODIV), dialog_(dialog) {}

HWND frmAutoDivFace::onInit() {
  fields_.setProblemLine(item(IDC_PROBLEM));
  fields_.add(numberField(item(IDC_FLDMINVAL), [this] { return &dialog_.fldMinVal; }));
  fields_.add(numberField(item(IDC_FLDMAXVAL), [this] { return &dialog_.fldMaxVal; }));
  fields_.add(countField(item(IDC_FLDDIVISIONS), [this] { return &dialog_.fldDivisions; }));
  fields_.show();
  return nullptr;
}

void frmAutoDivFace::onCommand(int control, int event) {
  fields_.onCommand(item(control), event);
  if (event != BN_CLICKED) return;
  if (control == IDOK && fields_.allRight()) dialog_.OK();
  if (control == IDCANCEL) dialog_.Cancel();
}

std::optional<INT_PTR> frmAutoDivFace::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  return fields_.onMessage(message, wide, longer);
}

}  // namespace activex
