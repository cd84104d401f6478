#include "activex/dialogs/frmColorRampFace.h"

#include "activex/dialogs/drawnButton.h"
#include "activex/dialogs/ids.h"

namespace activex {

frmColorRampFace::frmColorRampFace(ModColor::frmColorRamp& dialog)
    : DialogFace(dialog, "frmColorRamp", IDD_FRMCOLORRAMP), dialog_(dialog) {}

HWND frmColorRampFace::onInit() {
  takeKeys(item(IDC_LBLFIRSTCOLOR), *this);
  takeKeys(item(IDC_LBLLASTCOLOR), *this);
  showSwatches();
  return nullptr;
}

void frmColorRampFace::onCommand(int control, int event) {
  if (event != BN_CLICKED) return;
  switch (control) {
    case IDOK:
      return dialog_.OK();
    case IDCANCEL:
      return dialog_.Cancel();
    case IDC_LBLFIRSTCOLOR:
      dialog_.lblFirstColor_Click();
      return showSwatches();
    case IDC_LBLLASTCOLOR:
      dialog_.lblLastColor_Click();
      return showSwatches();
    default:
      break;
  }
}

std::optional<INT_PTR> frmColorRampFace::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message != WM_DRAWITEM) return {};
  drawSwatch(*reinterpret_cast<const DRAWITEMSTRUCT*>(longer),
             wide == IDC_LBLFIRSTCOLOR ? dialog_.FirstColor() : dialog_.LastColor());
  return TRUE;
}

// Enter presses a swatch as it presses other buttons.
bool frmColorRampFace::takesKey(HWND, WPARAM key) { return key == VK_RETURN; }

void frmColorRampFace::onKey(HWND control, WPARAM) { PostMessageW(control, BM_CLICK, 0, 0); }

void frmColorRampFace::showSwatches() {
  if (window() == nullptr) return;  // gone with its owner
  setText(item(IDC_LBLFIRSTCOLOR), swatchName("First color", dialog_.FirstColor()));
  setText(item(IDC_LBLLASTCOLOR), swatchName("Last color", dialog_.LastColor()));
  InvalidateRect(item(IDC_LBLFIRSTCOLOR), nullptr, FALSE);
  InvalidateRect(item(IDC_LBLLASTCOLOR), nullptr, FALSE);
}

}  // namespace activex
