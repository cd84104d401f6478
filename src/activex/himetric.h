#pragma once

#include <windows.h>

namespace activex {

// Extents are told in hundredths of a millimetre, windows measured in pixels.
struct Resolution {
  int x = 96, y = 96;  // pixels to the inch
};

inline Resolution screenResolution() {
  Resolution found;
  const HDC screen = GetDC(nullptr);
  if (screen == nullptr) return found;
  if (const int x = GetDeviceCaps(screen, LOGPIXELSX); x > 0) found.x = x;
  if (const int y = GetDeviceCaps(screen, LOGPIXELSY); y > 0) found.y = y;
  ReleaseDC(nullptr, screen);
  return found;
}

// Both round halves up, as hosts do, so that sizes come back as they went out.
inline SIZE pixelsOf(const SIZEL& himetric) {
  const Resolution screen = screenResolution();
  return {MulDiv(himetric.cx, screen.x, 2540), MulDiv(himetric.cy, screen.y, 2540)};
}

inline SIZEL himetricOf(const SIZE& pixels) {
  const Resolution screen = screenResolution();
  return {MulDiv(pixels.cx, 2540, screen.x), MulDiv(pixels.cy, 2540, screen.y)};
}

}  // namespace activex
