#include "platform/cairo/pngPicture.h"

#include <libdeflate.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <vector>

#include "platform/cairo/Palette.h"

namespace platform {
namespace {

// Of the levels 0..12: beyond this one files of sections get hardly smaller, only slower.
constexpr int kLevel = 3;
enum Filter : uint8_t { kNone = 0, kSub = 1, kUp = 2 };
enum ColourType : char { kTrueColour = 2, kIndexed = 3 };

using Bytes = std::vector<uint8_t>;

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const noexcept {
    libdeflate_free_compressor(compressor);
  }
};

void putNumber(std::string& out, std::size_t number) {
  for (unsigned shift = 32; shift > 0; shift -= 8) {
    out += static_cast<char>(number >> (shift - 8) & 0xFFU);
  }
}

// Length, type, data, and the sum over the last two.
void putChunk(std::string& out, std::string_view type, std::string_view data) {
  putNumber(out, data.size());
  const std::size_t summed = out.size();
  out.append(type).append(data);
  putNumber(out, libdeflate_crc32(0, out.data() + summed, out.size() - summed));
}

std::string header(const PixelRows& pixels, ColourType type) {
  std::string data;
  putNumber(data, static_cast<std::size_t>(pixels.width()));
  putNumber(data, static_cast<std::size_t>(pixels.height()));
  // Eight bits a channel; the only methods of compression, filtering and interlacing none.
  data.append({8, static_cast<char>(type), 0, 0, 0});
  return data;
}

void putRgb(std::string& out, uint32_t pixel) {
  for (const unsigned shift : {16U, 8U, 0U}) out += static_cast<char>(pixel >> shift & 0xFFU);
}

std::string paletteData(const Palette& palette) {
  std::string data;
  for (const uint32_t colour : palette.colours()) putRgb(data, colour);
  return data;
}

void putIndices(std::span<const uint32_t> row, const Palette& palette, uint8_t* out) {
  uint32_t last = kWhitePixel;
  uint8_t index = palette.indexOf(last);
  for (const uint32_t bits : row) {
    const uint32_t colour = bits & 0x00FFFFFFU;
    if (colour != last) {
      last = colour;
      index = palette.indexOf(colour);
    }
    *out++ = index;
  }
}

// Each channel less that of the pixel before.
void putDifferences(std::span<const uint32_t> row, uint8_t* out) {
  uint32_t before = 0;
  for (const uint32_t pixel : row) {
    for (const unsigned shift : {16U, 8U, 0U}) {
      *out++ = static_cast<uint8_t>((pixel >> shift) - (before >> shift));
    }
    before = pixel;
  }
}

// The rows as they are compressed, each behind the number of its filter. A row like the one
// above, as most are in a picture of blocks, is nothing but zeros.
Bytes filtered(const PixelRows& pixels, const std::optional<Palette>& palette) {
  const std::size_t width = static_cast<std::size_t>(pixels.width()) * (palette ? 1 : 3);
  Bytes data((width + 1) * static_cast<std::size_t>(pixels.height()));
  uint8_t* out = data.data();
  for (int32_t y = 0; y < pixels.height(); ++y, out += width + 1) {
    if (y > 0 && pixels.sameRows(y - 1, y)) {
      *out = kUp;
    } else if (palette) {
      *out = kNone;
      putIndices(pixels.row(y), *palette, out + 1);
    } else {
      *out = kSub;
      putDifferences(pixels.row(y), out + 1);
    }
  }
  return data;
}

std::string compressed(const Bytes& data) {
  const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
      libdeflate_alloc_compressor(kLevel));
  if (!compressor) throw std::bad_alloc();
  std::string out(libdeflate_zlib_compress_bound(compressor.get(), data.size()), '\0');
  out.resize(libdeflate_zlib_compress(compressor.get(), data.data(), data.size(), out.data(),
                                      out.size()));
  if (out.empty()) throw std::bad_alloc();
  return out;
}

}  // namespace

std::string pngPicture(const PixelRows& pixels) {
  const std::optional<Palette> palette = Palette::of(pixels);
  std::string png = "\x89PNG\r\n\x1A\n";
  putChunk(png, "IHDR", header(pixels, palette ? kIndexed : kTrueColour));
  if (palette) putChunk(png, "PLTE", paletteData(*palette));
  const std::string data = compressed(filtered(pixels, palette));
  png.reserve(png.size() + data.size() + 64);
  putChunk(png, "IDAT", data);
  putChunk(png, "IEND", {});
  return png;
}

}  // namespace platform
