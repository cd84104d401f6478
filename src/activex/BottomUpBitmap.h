#pragma once

#include <windows.h>

#include <functional>

#include "platform/gdi/handles.h"

namespace activex {

// A picture with its rows from the bottom, 32 bits a pixel, as old metafiles and blocks of bitmap
// bytes have them.
class BottomUpBitmap {
 public:
  // White, and then what draw leaves on it. Without memory, or an area, there are no bits.
  BottomUpBitmap(int width, int height, const std::function<void(HDC)>& draw);

  const BITMAPINFO& info() const { return info_; }
  // info().bmiHeader.biSizeImage bytes; null when there are none.
  const void* bits() const { return bits_; }

 private:
  BITMAPINFO info_ = {};
  void* bits_ = nullptr;
  platform::BitmapHandle bitmap_;
};

}  // namespace activex
