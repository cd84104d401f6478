#include "activex/pictureMedia.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "activex/BottomUpBitmap.h"
#include "activex/Instance.h"
#include "activex/drawPicture.h"
#include "platform/gdi/bitmapSize.h"
#include "platform/gdi/handles.h"

namespace activex {
namespace {

// The picture's area in pixels, at the size that was last given. Empty when there is none.
RECT pictureArea(Instance& instance) {
  instance.body.applySize();
  const auto& picture = instance.body.visible();
  if (picture.width() <= 0 || picture.height() <= 0) return {};
  return {0, 0, picture.width(), picture.height()};
}

class ScreenDc {
 public:
  ScreenDc() : dc_(GetDC(nullptr)) {}
  ~ScreenDc() {
    if (dc_ != nullptr) ReleaseDC(nullptr, dc_);
  }
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  HDC get() const { return dc_; }

 private:
  HDC dc_;
};

// Device units for hundredths of a millimetre, by the true measures of the device, which
// metafiles are framed by. At least 1, since a coordinate system needs an extent.
int deviceUnits(LONG himetric, HDC dc, int resolution, int millimetres) {
  const int size = std::max(GetDeviceCaps(dc, millimetres), 1);
  return std::max(MulDiv(himetric, GetDeviceCaps(dc, resolution), 100 * size), 1);
}

// Movable global memory, filled by whoever has it locked.
class GlobalBlock {
 public:
  explicit GlobalBlock(SIZE_T size) : handle_(GlobalAlloc(GMEM_MOVEABLE, size)) {}
  ~GlobalBlock() {
    if (handle_ != nullptr) GlobalFree(handle_);
  }
  GlobalBlock(const GlobalBlock&) = delete;
  GlobalBlock& operator=(const GlobalBlock&) = delete;

  // Calls fill with the address. False when there is none.
  template <class Fill>
  bool fill(const Fill& fill) const {
    void* const bytes = handle_ != nullptr ? GlobalLock(handle_) : nullptr;
    if (bytes == nullptr) return false;
    fill(bytes);
    GlobalUnlock(handle_);
    return true;
  }
  HGLOBAL detach() {
    const HGLOBAL handle = handle_;
    handle_ = nullptr;
    return handle;
  }

 private:
  HGLOBAL handle_;
};

}  // namespace

HRESULT renderEnhMetafile(Instance& instance, STGMEDIUM& medium) {
  const RECT area = pictureArea(instance);
  const SIZEL extent = instance.extent;
  if (IsRectEmpty(&area)) return OLE_E_BLANK;
  const ScreenDc screen;
  const RECT frame = {0, 0, extent.cx, extent.cy};
  const HDC recorder = CreateEnhMetaFileW(screen.get(), nullptr, &frame, nullptr);
  if (recorder == nullptr) return E_OUTOFMEMORY;
  SetMapMode(recorder, MM_ANISOTROPIC);
  SetWindowExtEx(recorder, area.right, area.bottom, nullptr);
  SetViewportExtEx(recorder, deviceUnits(extent.cx, recorder, HORZRES, HORZSIZE),
                   deviceUnits(extent.cy, recorder, VERTRES, VERTSIZE), nullptr);
  const bool drawn = drawPicture(instance, recorder, area);
  const HENHMETAFILE metafile = CloseEnhMetaFile(recorder);
  if (metafile == nullptr) return E_OUTOFMEMORY;
  if (!drawn) {
    DeleteEnhMetaFile(metafile);
    return E_OUTOFMEMORY;
  }
  medium.tymed = TYMED_ENHMF;
  medium.hEnhMetaFile = metafile;
  return S_OK;
}

HRESULT renderMetafilePict(Instance& instance, STGMEDIUM& medium) {
  const RECT area = pictureArea(instance);
  if (IsRectEmpty(&area)) return OLE_E_BLANK;
  GlobalBlock block(sizeof(METAFILEPICT));
  const HDC recorder = CreateMetaFileW(nullptr);
  if (recorder == nullptr) return E_OUTOFMEMORY;
  // Without an extent of the viewport, whoever plays it gives it one of his own.
  SetMapMode(recorder, MM_ANISOTROPIC);
  SetWindowOrgEx(recorder, 0, 0, nullptr);
  SetWindowExtEx(recorder, area.right, area.bottom, nullptr);
  const bool drawn = drawPicture(instance, recorder, area);
  const HMETAFILE metafile = CloseMetaFile(recorder);
  if (metafile == nullptr) return E_OUTOFMEMORY;
  const bool filled = drawn && block.fill([&](void* bytes) {
    new (bytes) METAFILEPICT{MM_ANISOTROPIC, instance.extent.cx, instance.extent.cy, metafile};
  });
  if (!filled) {
    DeleteMetaFile(metafile);
    return E_OUTOFMEMORY;
  }
  medium.tymed = TYMED_MFPICT;
  medium.hMetaFilePict = block.detach();
  return S_OK;
}

HRESULT renderBitmap(Instance& instance, STGMEDIUM& medium) {
  const RECT area = pictureArea(instance);
  if (IsRectEmpty(&area)) return OLE_E_BLANK;
  if (!platform::isBitmapSize(area.right, area.bottom)) return E_OUTOFMEMORY;
  const ScreenDc screen;
  platform::BitmapHandle bitmap(CreateCompatibleBitmap(screen.get(), area.right, area.bottom));
  const platform::MemoryDc dc(CreateCompatibleDC(screen.get()));
  if (!bitmap || !dc) return E_OUTOFMEMORY;
  const HGDIOBJ before = SelectObject(dc.get(), bitmap.get());
  const bool drawn = drawPicture(instance, dc.get(), area);
  SelectObject(dc.get(), before);
  if (!drawn) return E_OUTOFMEMORY;
  medium.tymed = TYMED_GDI;
  medium.hBitmap = bitmap.release();
  return S_OK;
}

HRESULT renderDib(Instance& instance, STGMEDIUM& medium) {
  const RECT area = pictureArea(instance);
  if (IsRectEmpty(&area)) return OLE_E_BLANK;
  bool drawn = false;
  const BottomUpBitmap copy(area.right, area.bottom,
                            [&](HDC dc) { drawn = drawPicture(instance, dc, area); });
  if (copy.bits() == nullptr || !drawn) return E_OUTOFMEMORY;
  const BITMAPINFOHEADER& header = copy.info().bmiHeader;
  GlobalBlock block(sizeof header + header.biSizeImage);
  const bool filled = block.fill([&](void* bytes) {
    auto* const written = new (bytes) BITMAPINFOHEADER(header);
    std::copy_n(static_cast<const std::uint8_t*>(copy.bits()), header.biSizeImage,
                reinterpret_cast<std::uint8_t*>(written + 1));
  });
  if (!filled) return E_OUTOFMEMORY;
  medium.tymed = TYMED_HGLOBAL;
  medium.hGlobal = block.detach();
  return S_OK;
}

}  // namespace activex
