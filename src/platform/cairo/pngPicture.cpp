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

// Of the levels 0..12 the quickest: below it long runs of a colour cost more, above it files get
// hardly smaller.
constexpr int kLevel = 2;
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

// Each channel less that of the pixel before it, which is the one to the left or above.
template <class Before>
void putDifferences(std::span<const uint32_t> row, uint8_t* out, Before before) {
  for (std::size_t x = 0; x < row.size(); ++x) {
    const uint32_t reference = before(x);
    for (const unsigned shift : {16U, 8U, 0U}) {
      *out++ = static_cast<uint8_t>((row[x] >> shift) - (reference >> shift));
    }
  }
}

// How many pixels repeat the one before them, from a row of those.
std::size_t repeated(std::span<const uint32_t> row, const uint32_t* before) {
  std::size_t count = 0;
  for (std::size_t x = 0; x < row.size(); ++x) {
    count += ((row[x] ^ before[x]) & 0x00FFFFFFU) == 0 ? 1U : 0U;
  }
  return count;
}

// The rows as they are compressed, each behind the number of its filter: differences from the
// pixels above where they repeat more of them than of those to the left.
class FilteredRows {
 public:
  FilteredRows(const PixelRows& pixels, const std::optional<Palette>& palette)
      : pixels_(pixels),
        palette_(palette),
        width_(static_cast<std::size_t>(pixels.width()) * (palette ? 1 : 3)),
        data_((width_ + 1) * static_cast<std::size_t>(pixels.height())) {
    uint8_t* out = data_.data();
    for (int32_t y = 0; y < pixels.height(); ++y, out += width_ + 1) put(y, out);
  }
  const Bytes& data() const { return data_; }

 private:
  void put(int32_t y, uint8_t* out) {
    const auto row = pixels_.row(y);
    const std::size_t above = y == 0 ? 0 : repeated(row, pixels_.row(y - 1).data());
    const bool up = above > repeated(row.subspan(1), row.data());
    if (palette_) {
      indices_.resize(row.size());
      lastIndices_.swap(indices_);
      indices_.resize(row.size());
      if (y > 0 && above == row.size()) {
        indices_ = lastIndices_;
      } else {
        putIndices(row, *palette_, indices_.data());
      }
      *out++ = up ? kUp : kNone;
      for (std::size_t x = 0; x < row.size(); ++x) {
        out[x] = static_cast<uint8_t>(indices_[x] - (up ? lastIndices_[x] : 0));
      }
      return;
    }
    *out++ = up ? kUp : kSub;
    if (up && above == row.size()) return;  // zeros
    if (up) {
      const auto rowAbove = pixels_.row(y - 1);
      putDifferences(row, out, [=](std::size_t x) { return rowAbove[x]; });
    } else {
      putDifferences(row, out, [=](std::size_t x) { return x == 0 ? 0U : row[x - 1]; });
    }
  }

  const PixelRows& pixels_;
  const std::optional<Palette>& palette_;
  std::size_t width_;
  Bytes data_;
  Bytes indices_, lastIndices_;  // of a row and the one above
};

// Into room for the worst case, which no picture of a section comes near: what is not written
// never becomes memory.
class Compressed {
 public:
  explicit Compressed(const Bytes& data) {
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kLevel));
    if (!compressor) throw std::bad_alloc();
    const std::size_t room = libdeflate_zlib_compress_bound(compressor.get(), data.size());
    bytes_ = std::make_unique_for_overwrite<char[]>(room);
    size_ = libdeflate_zlib_compress(compressor.get(), data.data(), data.size(), bytes_.get(), room);
    if (size_ == 0) throw std::bad_alloc();
  }
  std::string_view data() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace

std::string pngPicture(const PixelRows& pixels) {
  const std::optional<Palette> palette = Palette::of(pixels);
  std::string png = "\x89PNG\r\n\x1A\n";
  putChunk(png, "IHDR", header(pixels, palette ? kIndexed : kTrueColour));
  if (palette) putChunk(png, "PLTE", paletteData(*palette));
  const Compressed compressed(FilteredRows(pixels, palette).data());
  png.reserve(png.size() + compressed.data().size() + 64);
  putChunk(png, "IDAT", compressed.data());
  putChunk(png, "IEND", {});
  return png;
}

}  // namespace platform
