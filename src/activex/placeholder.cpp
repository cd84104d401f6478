#include "activex/placeholder.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "activex/ambient.h"
#include "platform/gdi/handles.h"

namespace activex {
namespace {

// Whether texts of the locale run from the right.
bool fromTheRight(LCID locale) {
  DWORD layout = 0;
  const int got = GetLocaleInfoW(locale, LOCALE_IREADINGLAYOUT | LOCALE_RETURN_NUMBER,
                                 reinterpret_cast<LPWSTR>(&layout), sizeof layout / sizeof(WCHAR));
  return got != 0 && layout == 1;
}

void drawBorder(HDC dc, const RECT& bounds) {
  const int right = bounds.right + (bounds.right > bounds.left ? -1 : 1);
  const int bottom = bounds.bottom + (bounds.bottom > bounds.top ? -1 : 1);
  MoveToEx(dc, bounds.left, bounds.top, nullptr);
  LineTo(dc, right, bounds.top);
  LineTo(dc, right, bottom);
  LineTo(dc, bounds.left, bottom);
  LineTo(dc, bounds.left, bounds.top);
}

// Nothing is measured, since metafiles measure no text.
void drawName(const Ambient& ambient, HDC dc, const RECT& bounds, int height) {
  LOGFONTW description = ambient.font();
  const int boundsHeight = bounds.bottom - bounds.top;
  description.lfHeight =
      std::max(MulDiv(std::abs(description.lfHeight), std::abs(boundsHeight), height), 1) *
      (description.lfHeight < 0 ? -1 : 1);
  description.lfWidth = 0;
  const platform::FontHandle font(CreateFontIndirectW(&description));
  const platform::Selected selected(dc, font.get());
  const std::wstring name = ambient.displayName();
  const int upward = std::abs(description.lfHeight) * 3 / 5 * (boundsHeight < 0 ? -1 : 1);
  SetTextColor(dc, ambient.foreColour());
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_CENTER | TA_TOP | (fromTheRight(ambient.locale()) ? TA_RTLREADING : 0U));
  ExtTextOutW(dc, bounds.left + (bounds.right - bounds.left) / 2,
              bounds.top + boundsHeight / 2 - upward, ETO_CLIPPED, &bounds, name.c_str(),
              static_cast<UINT>(name.size()), nullptr);
}

}  // namespace

void drawPlaceholder(const Ambient& ambient, HDC dc, const RECT& bounds, int height) {
  if (bounds.left == bounds.right || bounds.top == bounds.bottom) return;
  const int saved = SaveDC(dc);
  // An empty text fills the rectangle with the background's colour, in every kind of context.
  SetBkColor(dc, ambient.backColour());
  ExtTextOutW(dc, bounds.left, bounds.top, ETO_OPAQUE, &bounds, L"", 0, nullptr);
  {
    const platform::PenHandle pen(CreatePen(PS_SOLID, 0, ambient.foreColour()));
    const platform::Selected selected(dc, pen.get());
    drawBorder(dc, bounds);
  }
  if (height > 0) drawName(ambient, dc, bounds, height);
  RestoreDC(dc, saved);
}

}  // namespace activex
