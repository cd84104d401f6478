#include "Picture.h"

#include <algorithm>
#include <cstdlib>

namespace pictures {
namespace {

constexpr int kVisible = 96;             // of 255 in a channel
constexpr int kTile = 8;                 // pixels a side
constexpr int kMostVisible = 6;          // pixels of a tile
constexpr double kMostOnAverage = 0.25;  // of 255

int channel(uint32_t pixel, int number) { return static_cast<int>(pixel >> 8 * number & 0xFF); }

// The largest difference of a channel; adds up all three.
int differenceAt(uint32_t a, uint32_t b, int64_t& sum) {
  int largest = 0;
  for (int number = 0; number < 3; ++number) {
    const int difference = std::abs(channel(a, number) - channel(b, number));
    sum += difference;
    largest = std::max(largest, difference);
  }
  return largest;
}

std::string place(int x, int y) { return std::to_string(x) + ", " + std::to_string(y); }

}  // namespace

Picture::Picture(int width, int height)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      width_(width),
      height_(height) {
  for (int y = 0; y < height; ++y) std::fill_n(row(y), width, 0xFFFFFFU);
}

Picture Picture::load(const std::filesystem::path& file) {
  Picture picture;
  platform::CairoSurface surface(cairo_image_surface_create_from_png(file.c_str()));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return picture;
  picture.width_ = cairo_image_surface_get_width(surface.get());
  picture.height_ = cairo_image_surface_get_height(surface.get());
  picture.surface_ = std::move(surface);
  return picture;
}

bool Picture::save(const std::filesystem::path& file) const {
  cairo_surface_mark_dirty(surface_.get());
  return cairo_surface_write_to_png(surface_.get(), file.c_str()) == CAIRO_STATUS_SUCCESS;
}

uint32_t* Picture::row(int y) const {
  unsigned char* bytes = cairo_image_surface_get_data(surface_.get());
  void* start = bytes + std::ptrdiff_t{cairo_image_surface_get_stride(surface_.get())} * y;
  return static_cast<uint32_t*>(start);
}

std::string differenceOf(const Picture& expected, const Picture& actual, Picture& marks) {
  if (expected.empty()) return "the expected picture cannot be read";
  if (actual.empty()) return "it was not drawn";
  const int width = expected.width(), height = expected.height();
  if (actual.width() != width || actual.height() != height) return "another size";
  marks = Picture(width, height);
  int64_t sum = 0;
  std::string failure;
  for (int top = 0; top < height; top += kTile) {
    for (int left = 0; left < width; left += kTile) {
      int visible = 0;
      for (int y = top; y < std::min(top + kTile, height); ++y) {
        for (int x = left; x < std::min(left + kTile, width); ++x) {
          const int difference = differenceAt(expected.at(x, y), actual.at(x, y), sum);
          if (difference > 0) marks.set(x, y, difference > kVisible ? 0 : 0xA0A0A0);
          if (difference > kVisible) ++visible;
        }
      }
      if (visible > kMostVisible && failure.empty())
        failure = "other pixels at " + place(left, top);
    }
  }
  const double average = static_cast<double>(sum) / 3 / width / height;
  if (failure.empty() && average > kMostOnAverage) {
    failure = "other tones everywhere, " + std::to_string(average) + " on average";
  }
  return failure;
}

}  // namespace pictures
