#include "activex/drawPicture.h"

#include "activex/Body.h"
#include "activex/BottomUpBitmap.h"

namespace activex {
namespace {

// Draws in the context's own coordinates, so that a host's scaling is kept.
bool drawLogical(const platform::GdiPictureBox& picture, HDC dc, const RECT& bounds) {
  return picture.drawInto(dc, bounds);
}

// Draws in device pixels: the picture stays upright and comes out pixel for pixel where the
// sizes agree, whatever the host's coordinates are.
bool drawDevice(const platform::GdiPictureBox& picture, HDC dc, RECT bounds) {
  POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
  LPtoDP(dc, corners, 2);
  const RECT device = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
  const int saved = SaveDC(dc);
  ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
  SetMapMode(dc, MM_TEXT);
  SetWindowOrgEx(dc, 0, 0, nullptr);
  SetViewportOrgEx(dc, 0, 0, nullptr);
  SetLayout(dc, 0);
  const bool drawn = picture.drawInto(dc, device);
  RestoreDC(dc, saved);
  return drawn;
}

// Old metafiles know no rows from the top.
bool drawRecord(const platform::GdiPictureBox& picture, HDC dc, const RECT& bounds) {
  if (picture.width() <= 0 || picture.height() <= 0) return true;
  const BottomUpBitmap copy(picture);
  if (copy.bits() == nullptr) return false;
  SetStretchBltMode(dc, COLORONCOLOR);
  const int rows = StretchDIBits(dc, bounds.left, bounds.top, bounds.right - bounds.left,
                                 bounds.bottom - bounds.top, 0, 0, picture.width(),
                                 picture.height(), copy.bits(), &copy.info(), DIB_RGB_COLORS,
                                 SRCCOPY);
  return rows != 0 && rows != static_cast<int>(GDI_ERROR);
}

}  // namespace

bool drawPicture(Body& body, HDC dc, const RECT& bounds) {
  body.applySize();
  const auto& picture = body.visible();
  switch (GetObjectType(dc)) {
    case OBJ_METADC: return drawRecord(picture, dc, bounds);
    case OBJ_ENHMETADC: return drawLogical(picture, dc, bounds);
    default: return drawDevice(picture, dc, bounds);
  }
}

}  // namespace activex
