#include "Picture.h"

#include <wincodec.h>

#include <algorithm>
#include <cwctype>

#include "ComOwner.h"
#include "Dispatch.h"
#include "wholeFile.h"

namespace host {
namespace {

bool endsWith(std::wstring text, const std::wstring& end) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// A bitmap in memory with a device context that draws on it.
class Canvas {
 public:
  Canvas(int width, int height) : dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    if (bitmap_ != nullptr) before_ = SelectObject(dc_, bitmap_);
  }
  ~Canvas() {
    if (bitmap_ != nullptr) {
      SelectObject(dc_, before_);
      DeleteObject(bitmap_);
    }
    DeleteDC(dc_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  bool there() const { return bitmap_ != nullptr; }
  HDC dc() const { return dc_; }
  const uint32_t* pixels() const { return static_cast<const uint32_t*>(bits_); }

 private:
  HDC dc_;
  void* bits_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

// All that was written to a stream in memory.
std::vector<std::byte> bytesOf(IStream& stream) {
  STATSTG state = {};
  HGLOBAL memory = nullptr;
  require(stream.Stat(&state, STATFLAG_NONAME), "no memory for the picture file");
  require(GetHGlobalFromStream(&stream, &memory), "no memory for the picture file");
  const auto size = static_cast<std::size_t>(state.cbSize.QuadPart);
  const auto* first = static_cast<const std::byte*>(GlobalLock(memory));
  std::vector<std::byte> bytes(first, first + size);
  GlobalUnlock(memory);
  return bytes;
}

}  // namespace

Picture takePicture(int width, int height, const std::function<void(HDC)>& draw) {
  Picture picture{width, height, {}};
  const Canvas canvas(width, height);
  if (!canvas.there()) throw HostError(E_OUTOFMEMORY, "no memory for the picture");
  PatBlt(canvas.dc(), 0, 0, width, height, WHITENESS);
  draw(canvas.dc());
  GdiFlush();
  picture.pixels.assign(canvas.pixels(),
                        canvas.pixels() + static_cast<std::ptrdiff_t>(width) * height);
  // Devices leave what they like in the fourth byte.
  for (uint32_t& pixel : picture.pixels) pixel &= 0x00FFFFFF;
  return picture;
}

// Three bytes a pixel, rows padded to a multiple of four bytes as bitmaps want them.
std::vector<std::byte> encodePicture(const Picture& picture, PictureKind kind) {
  const std::string refusal = "cannot make the picture file";
  ComOwner<IWICImagingFactory> factory;
  ComOwner<IWICBitmapEncoder> encoder;
  ComOwner<IWICBitmapFrameEncode> frame;
  ComOwner<IStream> stream;
  const auto width = static_cast<UINT>(picture.width), height = static_cast<UINT>(picture.height);
  const UINT stride = (3 * width + 3) / 4 * 4;
  std::vector<BYTE> rows(static_cast<std::size_t>(stride) * height);
  for (int y = 0; y < picture.height; ++y) {
    BYTE* to = rows.data() + static_cast<std::size_t>(y) * stride;
    for (int x = 0; x < picture.width; ++x) {
      for (const int shift : {0, 8, 16}) {
        *to++ = static_cast<BYTE>(picture.at(x, y) >> shift & 0xFF);
      }
    }
  }
  require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_IWICImagingFactory, factory.receiveAny()),
          "no picture files here");
  require(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), refusal);
  const bool bmp = kind == PictureKind::Bmp;
  require(factory->CreateEncoder(bmp ? GUID_ContainerFormatBmp : GUID_ContainerFormatPng, nullptr,
                                 encoder.receive()),
          refusal);
  require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), refusal);
  require(encoder->CreateNewFrame(frame.receive(), nullptr), refusal);
  require(frame->Initialize(nullptr), refusal);
  require(frame->SetSize(width, height), refusal);
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  require(frame->SetPixelFormat(&format), refusal);
  require(frame->WritePixels(height, stride, static_cast<UINT>(rows.size()), rows.data()),
          refusal);
  require(frame->Commit(), refusal);
  require(encoder->Commit(), refusal);
  return bytesOf(*stream.get());
}

void savePicture(const Picture& picture, const std::wstring& path) {
  const PictureKind kind = endsWith(path, L".bmp") ? PictureKind::Bmp : PictureKind::Png;
  writeWhole(path, encodePicture(picture, kind));
}

}  // namespace host
