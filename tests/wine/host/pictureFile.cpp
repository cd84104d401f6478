#include "pictureFile.h"

#include <wincodec.h>

#include "ComOwner.h"
#include "Dispatch.h"

namespace winetest {

host::Picture loadPicture(const std::wstring& path) {
  const std::string what = "no picture in " + host::narrow(path);
  host::ComOwner<IWICImagingFactory> factory;
  host::ComOwner<IWICBitmapDecoder> decoder;
  host::ComOwner<IWICBitmapFrameDecode> frame;
  host::ComOwner<IWICBitmapSource> pixels;
  host::require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IWICImagingFactory, factory.receiveAny()),
                what);
  host::require(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                   WICDecodeMetadataCacheOnDemand,
                                                   decoder.receive()),
                what);
  host::require(decoder->GetFrame(0, frame.receive()), what);
  host::require(WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame.get(), pixels.receive()),
                what);
  UINT width = 0, height = 0;
  host::require(pixels->GetSize(&width, &height), what);
  host::Picture picture{static_cast<int>(width), static_cast<int>(height), {}};
  picture.pixels.resize(static_cast<std::size_t>(width) * height);
  host::require(pixels->CopyPixels(nullptr, 4 * width, 4 * width * height,
                                   reinterpret_cast<BYTE*>(picture.pixels.data())),
                what);
  for (uint32_t& pixel : picture.pixels) pixel &= 0x00FFFFFF;
  return picture;
}

}  // namespace winetest
