#pragma once

#include <windows.h>

namespace activex {

// Extents are told in hundredths of a millimetre, windows measured in pixels.
inline int screenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSX) : 0;
  if (screen != nullptr) ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : 96;
}

// Both round halves up, as hosts do, so that sizes come back as they went out.
inline LONG pixelsOf(LONG himetric) { return MulDiv(himetric, screenDpi(), 2540); }
inline LONG himetricOf(LONG pixels) { return MulDiv(pixels, 2540, screenDpi()); }

}  // namespace activex
