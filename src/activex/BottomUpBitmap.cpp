#include "activex/BottomUpBitmap.h"

#include <cstdint>

#include "platform/gdi/bitmapSize.h"

namespace activex {

BottomUpBitmap::BottomUpBitmap(int width, int height, const std::function<void(HDC)>& draw) {
  if (!platform::isBitmapSize(width, height)) return;
  const auto size = std::int64_t{4} * width * height;
  info_.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB,
                     static_cast<DWORD>(size), 0,     0,      0, 0};
  void* bits = nullptr;
  bitmap_.reset(CreateDIBSection(nullptr, &info_, DIB_RGB_COLORS, &bits, nullptr, 0));
  const platform::MemoryDc dc(CreateCompatibleDC(nullptr));
  if (!bitmap_ || !dc) return;
  const platform::Selected selected(dc.get(), bitmap_.get());
  PatBlt(dc.get(), 0, 0, width, height, WHITENESS);
  draw(dc.get());
  GdiFlush();
  bits_ = bits;
}

}  // namespace activex
