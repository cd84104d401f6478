#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace platform {

struct DeleteDcCall {
  void operator()(HDC dc) const noexcept { DeleteDC(dc); }
};
struct DeleteObjectCall {
  void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};

// Owned GDI handles. An object must not be selected into a living device context when it goes,
// so whoever holds both declares the context after the objects.
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDcCall>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteObjectCall>;
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectCall>;
using PenHandle = std::unique_ptr<std::remove_pointer_t<HPEN>, DeleteObjectCall>;

// An object selected into a device context for the extent of a scope.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  ~Selected() {
    if (previous_ != nullptr) SelectObject(dc_, previous_);
  }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

}  // namespace platform
