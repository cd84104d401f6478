#include "platform/cairo/pngPicture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "platform/cairo/cairoHandles.h"

// The files are read by another library's decoder.
namespace {

using platform::CairoSurface;
using platform::PixelRows;

struct Source {
  const std::string& bytes;
  std::size_t done = 0;
};

cairo_status_t readOn(void* source, unsigned char* out, unsigned length) {
  auto& from = *static_cast<Source*>(source);
  if (from.bytes.size() - from.done < length) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(out, from.bytes.data() + from.done, length);
  from.done += length;
  return CAIRO_STATUS_SUCCESS;
}

std::vector<uint32_t> decoded(const std::string& png) {
  Source source{png};
  const CairoSurface read(cairo_image_surface_create_from_png_stream(readOn, &source));
  EXPECT_EQ(cairo_surface_status(read.get()), CAIRO_STATUS_SUCCESS);
  EXPECT_EQ(source.done, png.size());
  std::vector<uint32_t> pixels;
  const int width = cairo_image_surface_get_width(read.get());
  std::vector<uint32_t> row(static_cast<std::size_t>(width));
  for (int y = 0; y < cairo_image_surface_get_height(read.get()); ++y) {
    const unsigned char* start = cairo_image_surface_get_data(read.get()) +
                                 std::ptrdiff_t{y} * cairo_image_surface_get_stride(read.get());
    std::memcpy(row.data(), start, row.size() * sizeof row[0]);
    for (const uint32_t pixel : row) pixels.push_back(pixel & 0xFFFFFF);
  }
  return pixels;
}

// The kind of colours that the header tells: 2 red, green and blue; 3 a palette.
int kindOf(const std::string& png) { return png[25]; }

void expectSame(std::vector<uint32_t> pixels, int32_t width, int32_t height, int kind) {
  PixelRows rows(pixels.data(), width, width, height);
  const std::vector<uint32_t> wanted = pixels;
  rows.open(0, height - 1);
  pixels = wanted;
  for (std::size_t n = 0; n < pixels.size(); n += 7) pixels[n] |= 0xFF000000;  // means nothing
  const std::string png = platform::pngPicture(rows);
  EXPECT_EQ(kindOf(png), kind);
  EXPECT_EQ(decoded(png), wanted);
}

TEST(PngPicture, OfFewColoursHasAPalette) {
  for (const uint32_t colours : {1U, 2U, 255U}) {
    std::vector<uint32_t> pixels(60 * 40);
    for (std::size_t n = 0; n < pixels.size(); ++n) {
      pixels[n] = static_cast<uint32_t>(n % colours) * 65793U;
    }
    expectSame(pixels, 60, 40, 3);
  }
}

TEST(PngPicture, OfManyColoursHasNone) {
  std::mt19937 random{3};
  std::vector<uint32_t> pixels(33 * 50);
  for (uint32_t& pixel : pixels) pixel = static_cast<uint32_t>(random()) & 0xFFFFFF;
  expectSame(pixels, 33, 50, 2);
}

// Rows like the one above, rows with a few pixels of their own, rows of one colour.
TEST(PngPicture, KeepsEveryRowWhateverIsAboveIt) {
  for (const bool few : {true, false}) {
    std::mt19937 random{4};
    constexpr std::size_t kWidth = 80;
    std::vector<uint32_t> row(kWidth), pixels;
    for (int y = 0; y < 200; ++y) {
      const auto change = random() % 4;
      for (std::size_t x = 0; x < kWidth; ++x) {
        const bool changed = change == 3 || (change == 2 && random() % 10 == 0);
        const auto colour = static_cast<uint32_t>(random());
        if (changed) row[x] = few ? colour % 16 * 1118481 : colour & 0xFFFFFF;
        if (change == 1) row[x] = few ? 1118481U : colour & 0x00FF00;
      }
      pixels.insert(pixels.end(), row.begin(), row.end());
    }
    expectSame(pixels, static_cast<int32_t>(kWidth), 200, few ? 3 : 2);
  }
}

TEST(PngPicture, OfOnePixelIsOne) { expectSame({0x123456}, 1, 1, 3); }

}  // namespace
