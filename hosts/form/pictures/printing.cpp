#include "pictures/printing.h"

#include <commdlg.h>
#include <winspool.h>

#include <algorithm>

#include "pictures/pictures.h"

namespace form {
namespace {

// Asked beforehand, because the system's dialog is rather short about it.
bool anyPrinter() {
  constexpr DWORD kInfo = 4;  // the level that asks no printer itself
  DWORD needed = 0, count = 0;
  EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, kInfo, nullptr, 0, &needed,
                &count);
  return needed > 0;
}

// The dialog with what it hands out.
class PrintDialog {
 public:
  explicit PrintDialog(HWND owner) {
    wanted_.lStructSize = sizeof wanted_;
    wanted_.hwndOwner = owner;
    wanted_.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
    chosen_ = PrintDlgW(&wanted_) != FALSE;
    if (!chosen_ && CommDlgExtendedError() != 0) {
      throw host::HostError(E_FAIL, "the printer is not ready");
    }
  }
  ~PrintDialog() {
    if (wanted_.hDC != nullptr) DeleteDC(wanted_.hDC);
    if (wanted_.hDevMode != nullptr) GlobalFree(wanted_.hDevMode);
    if (wanted_.hDevNames != nullptr) GlobalFree(wanted_.hDevNames);
  }
  PrintDialog(const PrintDialog&) = delete;
  PrintDialog& operator=(const PrintDialog&) = delete;

  bool chosen() const { return chosen_ && wanted_.hDC != nullptr; }
  HDC dc() const { return wanted_.hDC; }

 private:
  PRINTDLGW wanted_ = {};
  bool chosen_ = false;
};

void fail() { throw host::HostError(E_FAIL, "the printer takes no page"); }

}  // namespace

bool printPicture(HWND owner, const std::wstring& title, host::Object& control,
                  const PictureSize& view) {
  if (!anyPrinter()) throw host::HostError(E_FAIL, "no printer is installed");
  const PrintDialog dialog(owner);
  if (!dialog.chosen()) return false;
  const HDC dc = dialog.dc();
  DOCINFOW document = {};
  document.cbSize = sizeof document;
  document.lpszDocName = title.c_str();
  if (StartDocW(dc, &document) <= 0) fail();
  try {
    if (StartPage(dc) <= 0) fail();
    drawOnPage(dc, {GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES)}, control, view);
    if (EndPage(dc) <= 0 || EndDoc(dc) <= 0) fail();
  } catch (...) {
    AbortDoc(dc);
    throw;
  }
  return true;
}

}  // namespace form
