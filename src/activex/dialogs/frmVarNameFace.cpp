#include "activex/dialogs/frmVarNameFace.h"

#include <algorithm>

#include "activex/dialogs/ids.h"
#include "platform/gdi/handles.h"
#include "platform/gdi/wideText.h"

namespace activex {

frmVarNameFace::frmVarNameFace(ModColor::frmVarName& dialog)
    : DialogFace(dialog, "frmVarName", IDD_FRMVARNAME), dialog_(dialog) {}

HWND frmVarNameFace::onInit() {
  const HWND list = item(IDC_LSTVARNAMES);
  for (const std::string& name : dialog_.lstVarNames()) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(platform::toWide(name).c_str()));
  }
  fitWidth(list);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(dialog_.ListIndex), 0);
  return list;
}

void frmVarNameFace::onCommand(int control, int event) {
  const auto selected =
      static_cast<int32_t>(SendMessageW(item(IDC_LSTVARNAMES), LB_GETCURSEL, 0, 0));
  dialog_.ListIndex = selected == LB_ERR ? -1 : selected;
  if (control == IDOK && event == BN_CLICKED) {
    dialog_.OK();
  } else if (control == IDCANCEL && event == BN_CLICKED) {
    dialog_.Cancel();
  } else if (control == IDC_LSTVARNAMES && event == LBN_DBLCLK) {
    dialog_.OK();
  }
}

void frmVarNameFace::fitWidth(HWND list) const {
  const HDC dc = GetDC(list);
  if (dc == nullptr) return;
  LONG widest = 0;
  {
    const platform::Selected font(dc,
                                  reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    for (const std::string& name : dialog_.lstVarNames()) {
      const std::wstring text = platform::toWide(name);
      SIZE size = {};
      GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
      widest = std::max(widest, size.cx);
    }
  }
  ReleaseDC(list, dc);
  constexpr LONG kMargin = 8;
  SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + kMargin), 0);
}

}  // namespace activex
