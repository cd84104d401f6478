#include "activex/drawPicture.h"

#include <algorithm>

#include "activex/BottomUpBitmap.h"
#include "activex/Instance.h"
#include "activex/ambient.h"
#include "activex/himetric.h"
#include "activex/placeholder.h"

namespace activex {
namespace {

bool isMetafile(HDC dc) {
  const DWORD type = GetObjectType(dc);
  return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

// The device's pixels that bounds stands for. Where a layout runs from the right, so do the
// pixels: the one that a place names is left of the place.
RECT devicePixels(HDC dc, const RECT& bounds) {
  POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
  LPtoDP(dc, corners, 2);
  const DWORD layout = GetLayout(dc);
  const LONG shift = layout != GDI_ERROR && (layout & LAYOUT_RTL) != 0 ? 1 : 0;
  const auto [left, right] = std::minmax(corners[0].x, corners[1].x);
  const auto [top, bottom] = std::minmax(corners[0].y, corners[1].y);
  return {left + shift, top, right + shift, bottom};
}

// Calls draw with the rectangle of a context that is as it wants it. Metafiles keep the context's
// own coordinates, so that a host's scaling is kept. Elsewhere it is device pixels: the picture
// stays upright and comes out pixel for pixel where the sizes agree, whatever the host's
// coordinates are.
template <class Draw>
bool drawIn(HDC dc, const RECT& bounds, const Draw& draw) {
  if (!isDrawable(bounds)) return false;
  if (isMetafile(dc)) return draw(bounds);
  const RECT device = devicePixels(dc, bounds);
  if (IsRectEmpty(&device)) return true;
  if (!isDrawable(device)) return false;
  const int saved = SaveDC(dc);
  ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
  SetMapMode(dc, MM_TEXT);
  SetWindowOrgEx(dc, 0, 0, nullptr);
  SetViewportOrgEx(dc, 0, 0, nullptr);
  SetLayout(dc, 0);
  const bool drawn = draw(device);
  RestoreDC(dc, saved);
  return drawn;
}

bool stretch(const BottomUpBitmap& copy, HDC dc, const RECT& place) {
  const BITMAPINFO& info = copy.info();
  const int mode = SetStretchBltMode(dc, COLORONCOLOR);
  const int rows = StretchDIBits(
      dc, place.left, place.top, place.right - place.left, place.bottom - place.top, 0, 0,
      info.bmiHeader.biWidth, info.bmiHeader.biHeight, copy.bits(), &info, DIB_RGB_COLORS, SRCCOPY);
  if (mode != 0) SetStretchBltMode(dc, mode);
  return rows != 0 && rows != static_cast<int>(GDI_ERROR);
}

}  // namespace

bool isDrawable(const RECT& bounds) {
  constexpr LONG farthest = 0x03FFFFFF;  // differences still fit into the system's 27 bits
  const auto inside = [](LONG place) { return -farthest <= place && place <= farthest; };
  return inside(bounds.left) && inside(bounds.top) && inside(bounds.right) && inside(bounds.bottom);
}

bool drawPicture(Instance& instance, HDC dc, const RECT& bounds) {
  instance.body.applySize();
  if (bounds.left == bounds.right || bounds.top == bounds.bottom) return true;
  if (instance.showsPlaceholder()) {
    const Ambient ambient(instance.clientSite);
    const int height = pixelsOf(instance.extent).cy;
    return drawIn(dc, bounds, [&](const RECT& place) {
      drawPlaceholder(ambient, dc, place, height);
      return true;
    });
  }
  const platform::GdiPictureBox& picture = instance.body.visible();
  if (picture.width() <= 0 || picture.height() <= 0) return true;
  // Old metafiles know no rows from the top.
  if (GetObjectType(dc) == OBJ_METADC) {
    const RECT whole = {0, 0, picture.width(), picture.height()};
    return drawPicture(BottomUpBitmap(picture.width(), picture.height(),
                                      [&](HDC copy) { picture.copyTo(copy, whole); }),
                       dc, bounds);
  }
  return drawIn(dc, bounds, [&](const RECT& place) { return picture.drawInto(dc, place); });
}

bool drawPicture(const BottomUpBitmap& copy, HDC dc, const RECT& bounds) {
  if (bounds.left == bounds.right || bounds.top == bounds.bottom) return true;
  return copy.bits() != nullptr &&
         drawIn(dc, bounds, [&](const RECT& place) { return stretch(copy, dc, place); });
}

}  // namespace activex
