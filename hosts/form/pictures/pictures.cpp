#include "pictures/pictures.h"

#include <ole2.h>

#include <algorithm>
#include <cwctype>
#include <new>
#include <span>

#include "ComOwner.h"
#include "container/controlFactory.h"
#include "window/Metrics.h"
#include "wholeFile.h"

namespace form {
namespace {

using host::require;

constexpr char kNoPicture[] = "the control gives no picture";

// What the control hands out, given back at the end.
class Medium {
 public:
  Medium(IUnknown& control, CLIPFORMAT format, DWORD kind) {
    host::ComOwner<IDataObject> data;
    require(control.QueryInterface(IID_IDataObject, data.receiveAny()), kNoPicture);
    FORMATETC wanted = {format, nullptr, DVASPECT_CONTENT, -1, kind};
    require(data->GetData(&wanted, &medium_), kNoPicture);
  }
  ~Medium() { ReleaseStgMedium(&medium_); }
  Medium(const Medium&) = delete;
  Medium& operator=(const Medium&) = delete;

  HENHMETAFILE metafile() const { return medium_.hEnhMetaFile; }
  HGLOBAL memory() const { return medium_.hGlobal; }

 private:
  STGMEDIUM medium_ = {};
};

// A control in no window, of the given size, that has drawn what is open.
class SpareControl {
 public:
  explicit SpareControl(const PictureSize& size) {
    makeControl(identity_);
    host::ComOwner<IOleObject> ole;
    require(identity_->QueryInterface(IID_IOleObject, ole.receiveAny()), kNoPicture);
    SIZEL extent = himetricOf({size.width, size.height});
    require(ole->SetExtent(DVASPECT_CONTENT, &extent), kNoPicture);
    host::Object(identity_.get()).call(L"ReDraw");
  }
  IUnknown& identity() const { return *identity_.get(); }

 private:
  host::ComOwner<IUnknown> identity_;
};

// Another program may have the clipboard open for a moment.
class Clipboard {
 public:
  explicit Clipboard(HWND owner) {
    constexpr int kTries = 20;
    constexpr DWORD kPause = 25;  // milliseconds
    for (int k = 0; k < kTries && !open_; ++k) {
      if (k > 0) Sleep(kPause);
      open_ = OpenClipboard(owner) != FALSE;
    }
    if (!open_) throw host::HostError(E_FAIL, "another program is using the clipboard");
  }
  ~Clipboard() {
    if (open_) CloseClipboard();
  }
  Clipboard(const Clipboard&) = delete;
  Clipboard& operator=(const Clipboard&) = delete;

 private:
  bool open_ = false;
};

HGLOBAL copyOf(HGLOBAL memory) {
  const SIZE_T size = GlobalSize(memory);
  const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, size);
  if (copy == nullptr) throw std::bad_alloc();
  std::copy_n(static_cast<const std::byte*>(GlobalLock(memory)), size,
              static_cast<std::byte*>(GlobalLock(copy)));
  GlobalUnlock(memory);
  GlobalUnlock(copy);
  return copy;
}

// The last four letters of a name, in small ones.
std::wstring endingOf(const std::wstring& path) {
  std::wstring end = path.substr(path.size() - std::min<std::size_t>(path.size(), 4));
  std::transform(end.begin(), end.end(), end.begin(),
                 [](wchar_t letter) { return static_cast<wchar_t>(std::towlower(letter)); });
  return end;
}

}  // namespace

host::Picture pictureAt(const PictureSize& size) {
  const SpareControl control(size);
  return host::takePicture(size.width, size.height, [&](HDC dc) {
    const RECT bounds = {0, 0, size.width, size.height};
    require(OleDraw(&control.identity(), DVASPECT_CONTENT, dc, &bounds), kNoPicture);
  });
}

std::vector<std::byte> metafileAt(const PictureSize& size) {
  const SpareControl control(size);
  const Medium medium(control.identity(), CF_ENHMETAFILE, TYMED_ENHMF);
  std::vector<std::byte> bytes(GetEnhMetaFileBits(medium.metafile(), 0, nullptr));
  GetEnhMetaFileBits(medium.metafile(), static_cast<UINT>(bytes.size()),
                     reinterpret_cast<BYTE*>(bytes.data()));
  if (bytes.empty()) throw host::HostError(E_FAIL, kNoPicture);
  return bytes;
}

void savePictureAt(const PictureSize& size, const std::wstring& path) {
  const std::wstring ending = endingOf(path);
  if (ending == L".emf") return host::writeWhole(path, metafileAt(size));
  // Also keeps a picture from taking the place of a data set.
  if (ending != L".png") {
    throw host::HostError(E_INVALIDARG, "its name must end in .png or .emf");
  }
  host::writeWhole(path, host::encodePicture(pictureAt(size), host::PictureKind::Png));
}

void copyPicture(HWND owner, host::Object& control) {
  const Medium metafile(*control.dispatch(), CF_ENHMETAFILE, TYMED_ENHMF);
  const Medium bitmap(*control.dispatch(), CF_DIB, TYMED_HGLOBAL);
  const Clipboard clipboard(owner);
  EmptyClipboard();
  // What the clipboard takes is its own from then on.
  const HENHMETAFILE drawing = CopyEnhMetaFileW(metafile.metafile(), nullptr);
  const bool drawn = SetClipboardData(CF_ENHMETAFILE, drawing) != nullptr;
  if (!drawn) DeleteEnhMetaFile(drawing);
  const HGLOBAL pixels = copyOf(bitmap.memory());
  const bool painted = SetClipboardData(CF_DIB, pixels) != nullptr;
  if (!painted) GlobalFree(pixels);
  if (!drawn && !painted) throw host::HostError(E_FAIL, "the clipboard does not take the picture");
}

void drawOnPage(HDC dc, const PictureSize& page, host::Object& control, const PictureSize& view) {
  const Place place = fitOnPage(page, view);
  const RECT bounds = {place.left, place.top, place.left + place.width,
                       place.top + place.height};
  require(OleDraw(control.dispatch(), DVASPECT_CONTENT, dc, &bounds), kNoPicture);
}

}  // namespace form
