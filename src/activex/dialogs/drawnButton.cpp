#include "activex/dialogs/drawnButton.h"

#include "platform/gdi/handles.h"

namespace activex {
namespace {

constexpr int kFocusInset = 3;

HBRUSH stockBrush(int brush) { return static_cast<HBRUSH>(GetStockObject(brush)); }

// Black or white, whichever is seen on the colour.
HBRUSH contrastBrush(platform::Colour colour) {
  const int red = colour & 0xFF, green = colour >> 8 & 0xFF, blue = colour >> 16 & 0xFF;
  return stockBrush(299 * red + 587 * green + 114 * blue < 128'000 ? WHITE_BRUSH : BLACK_BRUSH);
}

}  // namespace

void drawSwatch(const DRAWITEMSTRUCT& item, platform::Colour colour) {
  RECT area = item.rcItem;
  const COLORREF before = SetBkColor(item.hDC, static_cast<COLORREF>(colour) & 0xFFFFFF);
  ExtTextOutW(item.hDC, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
  SetBkColor(item.hDC, before);
  FrameRect(item.hDC, &area, stockBrush(BLACK_BRUSH));
  if ((item.itemState & ODS_FOCUS) != 0) {
    InflateRect(&area, -kFocusInset, -kFocusInset);
    FrameRect(item.hDC, &area, contrastBrush(colour));
  }
}

std::string swatchName(const std::string& what, platform::Colour colour) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string name = what + ": #";
  for (const int component : {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF}) {
    name += {digits[component >> 4], digits[component & 0xF]};
  }
  return name;
}

void drawButton(const DRAWITEMSTRUCT& item, const wchar_t* caption) {
  RECT area = item.rcItem;
  const bool pushed = (item.itemState & ODS_SELECTED) != 0;
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  UINT style = DFCS_BUTTONPUSH;
  if (pushed) style |= DFCS_PUSHED;
  if (disabled) style |= DFCS_INACTIVE;
  DrawFrameControl(item.hDC, &area, DFC_BUTTON, style);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(item.hwndItem, WM_GETFONT, 0, 0));
  const platform::Selected selected(item.hDC, font);
  const int modeBefore = SetBkMode(item.hDC, TRANSPARENT);
  const COLORREF before =
      SetTextColor(item.hDC, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
  RECT text = area;
  if (pushed) OffsetRect(&text, 1, 1);
  DrawTextW(item.hDC, caption, -1, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  SetTextColor(item.hDC, before);
  SetBkMode(item.hDC, modeBefore);
  if ((item.itemState & ODS_FOCUS) != 0) {
    InflateRect(&area, -kFocusInset, -kFocusInset);
    DrawFocusRect(item.hDC, &area);
  }
}

}  // namespace activex
