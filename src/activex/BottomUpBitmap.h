#pragma once

#include <windows.h>

#include "platform/gdi/GdiPictureBox.h"
#include "platform/gdi/handles.h"

namespace activex {

// A copy of a picture with its rows from the bottom, 32 bits a pixel, as old metafiles and blocks
// of bitmap bytes have them.
class BottomUpBitmap {
 public:
  // Without memory, or from an empty picture, there are no bits.
  explicit BottomUpBitmap(const platform::GdiPictureBox& picture);

  const BITMAPINFO& info() const { return info_; }
  // info().bmiHeader.biSizeImage bytes; null when there are none.
  const void* bits() const { return bits_; }

 private:
  BITMAPINFO info_ = {};
  void* bits_ = nullptr;
  platform::BitmapHandle bitmap_;
};

}  // namespace activex
