#include "activex/dialogs/KeyRows.h"

#include <algorithm>

#include "activex/dialogs/DialogFace.h"
#include "activex/dialogs/drawnButton.h"
#include "activex/dialogs/ids.h"
#include "activex/module.h"

namespace activex {
namespace {

constexpr int kRowHeight = 12;     // dialog units
constexpr int kTwipsBetween = 30;  // twentieths of a point
constexpr int kTwipsPerInch = 1440;

RECT placeIn(HWND dialog, HWND control) {
  RECT place = {};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

int inPixels(int twips) {
  const HDC screen = GetDC(nullptr);
  const int pixels = MulDiv(twips, GetDeviceCaps(screen, LOGPIXELSY), kTwipsPerInch);
  ReleaseDC(nullptr, screen);
  return pixels;
}

std::string division(int32_t row) { return "division " + std::to_string(row + 1); }

}  // namespace

void KeyRows::setUp(HWND dialog) {
  window_ = dialog;
  number_ = columnOf(IDC_HEADNUMBER);
  low_ = columnOf(IDC_HEADLOW);
  high_ = columnOf(IDC_HEADHIGH);
  color_ = columnOf(IDC_HEADCOLOR);
  delete_ = columnOf(IDC_HEADDELETE);
  RECT row = {0, 0, 0, kRowHeight};
  MapDialogRect(dialog, &row);
  height_ = row.bottom;
  gap_ = inPixels(kTwipsBetween);
  top_ = placeIn(dialog, GetDlgItem(dialog, IDC_VSCROLL1)).top;
  last_ = GetDlgItem(dialog, IDC_HEADDELETE);
}

KeyRows::Column KeyRows::columnOf(int heading) const {
  const RECT place = placeIn(window_, GetDlgItem(window_, heading));
  return {place.left, place.right - place.left};
}

int KeyRows::roomIn(int height) const { return std::max((height + gap_) / pitch(), 1); }

void KeyRows::makeRoom(int lines) {
  room_ = lines;
  while (lines_ < lines) makeLine(lines_++);
}

void KeyRows::makeLine(int line) {
  constexpr DWORD name = SS_NOPREFIX | WS_VISIBLE;
  constexpr DWORD field = ES_AUTOHSCROLL | ES_RIGHT | WS_TABSTOP;
  constexpr DWORD button = BS_OWNERDRAW | WS_TABSTOP;
  make({line, ROW_NUMBER}, L"STATIC", SS_RIGHT | SS_CENTERIMAGE | SS_NOPREFIX, 0, number_);
  // Without extent, but not hidden: a field's name is the text of the label before it.
  make({line, ROW_LOWLABEL}, L"STATIC", name, 0, {});
  const HWND low = make({line, ROW_FLDLOWRANGE}, L"EDIT", field, WS_EX_CLIENTEDGE, low_);
  make({line, ROW_HIGHLABEL}, L"STATIC", name, 0, {});
  const HWND high = make({line, ROW_FLDHIGHRANGE}, L"EDIT", field, WS_EX_CLIENTEDGE, high_);
  const HWND color = make({line, ROW_LBLCOLOR}, L"BUTTON", button, 0, color_);
  const HWND remove = make({line, ROW_CMDDELETE}, L"BUTTON", button, 0, delete_);
  fields_.add(numberField(low, [this, line] {
    ModColor::frmColorKey::Row* const row = rowOf(line);
    return row != nullptr ? &row->fldLowRange : nullptr;
  }));
  fields_.add(numberField(high, [this, line] {
    ModColor::frmColorKey::Row* const row = rowOf(line);
    return row != nullptr ? &row->fldHighRange : nullptr;
  }));
  for (const HWND each : {low, high, color, remove}) takeKeys(each, keys_);
}

HWND KeyRows::make(Place place, const wchar_t* kind, DWORD style, DWORD extendedStyle,
                   Column column) {
  const int id = IDC_FIRSTROW + place.line * ROW_PARTS + place.part;
  const HWND made = CreateWindowExW(
      extendedStyle | WS_EX_NOPARENTNOTIFY, kind, L"", WS_CHILD | style, column.left,
      top_ + place.line * pitch(), column.width, column.width > 0 ? height_ : 0, window_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), moduleHandle(), nullptr);
  SendMessageW(made, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window_, WM_GETFONT, 0, 0)),
               FALSE);
  SetWindowPos(made, last_, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  last_ = made;
  return made;
}

ModColor::frmColorKey::Row* KeyRows::rowOf(int line) {
  const auto row = static_cast<std::size_t>(rowAt(line));
  return row < dialog_.rows.size() ? &dialog_.rows[row] : nullptr;
}

int KeyRows::shown() const {
  const auto rows = static_cast<int>(dialog_.rows.size());
  return std::clamp(rows - dialog_.VScroll1.Value, 0, room_);
}

void KeyRows::show() {
  const int lines = shown();
  hideAfter(lines);
  for (int line = 0; line < lines; ++line) showLine(line);
  fields_.show();
}

void KeyRows::hideAfter(int lines) const {
  const std::optional<Place> focused = placeOf(GetFocus());
  if (focused && focused->line >= lines) focus({lines - 1, focused->part});
  for (int line = lines; line < lines_; ++line) {
    for (int part = 0; part <= ROW_CMDDELETE; ++part) ShowWindow(control({line, part}), SW_HIDE);
  }
}

void KeyRows::showLine(int line) const {
  const int32_t row = rowAt(line);
  setText(control({line, ROW_NUMBER}), std::to_string(row + 1));
  setText(control({line, ROW_LOWLABEL}), "Low of " + division(row));
  setText(control({line, ROW_HIGHLABEL}), "High of " + division(row));
  const HWND remove = control({line, ROW_CMDDELETE}), swatch = control({line, ROW_LBLCOLOR});
  setText(remove, "Delete " + division(row));
  setText(swatch, swatchName("Color of " + division(row), at(row).lblColor));
  InvalidateRect(swatch, nullptr, FALSE);
  const bool removable = dialog_.rows.size() > 1;
  if (!removable && GetFocus() == remove) focus({line, ROW_FLDLOWRANGE});
  EnableWindow(remove, removable);
  for (int part = 0; part <= ROW_CMDDELETE; ++part) {
    ShowWindow(control({line, part}), SW_SHOWNA);
  }
}

std::optional<KeyRows::Place> KeyRows::placeOf(HWND control) const {
  if (control == nullptr || GetParent(control) != window_) return {};
  const int number = GetDlgCtrlID(control) - IDC_FIRSTROW;
  if (number < 0 || number >= lines_ * ROW_PARTS) return {};
  return Place{number / ROW_PARTS, number % ROW_PARTS};
}

HWND KeyRows::control(Place place) const {
  return GetDlgItem(window_, IDC_FIRSTROW + place.line * ROW_PARTS + place.part);
}

void KeyRows::focus(Place place) const {
  HWND wanted = control(place);
  if (!IsWindowEnabled(wanted)) wanted = control({place.line, ROW_FLDLOWRANGE});
  SetFocus(wanted);
  if ((SendMessageW(wanted, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
    SendMessageW(wanted, EM_SETSEL, 0, -1);
  }
}

void KeyRows::draw(const DRAWITEMSTRUCT& drawn, Place place) const {
  const int32_t row = rowAt(place.line);
  if (static_cast<std::size_t>(row) >= dialog_.rows.size()) return;
  if (place.part == ROW_LBLCOLOR) drawSwatch(drawn, at(row).lblColor);
  if (place.part == ROW_CMDDELETE) drawButton(drawn, L"Delete");
}

}  // namespace activex
