// Compares the pictures of two folders by the rules of the README beside this file.
//
// Usage: compare_pictures EXPECTED-FOLDER ACTUAL-FOLDER DIFFERENCES-FOLDER
// Exit status 0 when every picture of either folder is in both and the same.
#include <cairo.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <set>
#include <string>

#include "platform/cairo/cairoHandles.h"

namespace {

namespace fs = std::filesystem;
using platform::CairoSurface;

constexpr int kVisible = 32;             // of 255 in a channel
constexpr double kMostVisible = 0.002;   // of all pixels
constexpr double kMostOnAverage = 0.25;  // of 255

struct Picture {
  CairoSurface surface;
  int width = 0, height = 0;

  const uint32_t* row(int y) const {
    const unsigned char* bytes = cairo_image_surface_get_data(surface.get());
    const void* start = bytes + std::ptrdiff_t{cairo_image_surface_get_stride(surface.get())} * y;
    return static_cast<const uint32_t*>(start);
  }
};

// An unreadable picture is empty.
Picture load(const fs::path& file) {
  Picture picture{CairoSurface(cairo_image_surface_create_from_png(file.c_str()))};
  if (cairo_surface_status(picture.surface.get()) != CAIRO_STATUS_SUCCESS) return {};
  picture.width = cairo_image_surface_get_width(picture.surface.get());
  picture.height = cairo_image_surface_get_height(picture.surface.get());
  return picture;
}

int channel(uint32_t pixel, int number) { return static_cast<int>(pixel >> 8 * number & 0xFF); }

struct Difference {
  double visible = 0, average = 0;
  bool tooLarge() const { return visible > kMostVisible || average > kMostOnAverage; }
};

// Pictures of one size; marks what differs on a white surface of that size.
Difference compare(const Picture& a, const Picture& b, cairo_surface_t* marks) {
  int64_t visible = 0, sum = 0;
  unsigned char* const markBytes = cairo_image_surface_get_data(marks);
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(marks);
  for (int y = 0; y < a.height; ++y) {
    void* const start = markBytes + stride * y;
    auto* const markRow = static_cast<uint32_t*>(start);
    for (int x = 0; x < a.width; ++x) {
      const uint32_t pa = a.row(y)[x], pb = b.row(y)[x];
      int largest = 0;
      for (int number = 0; number < 3; ++number) {
        const int difference = std::abs(channel(pa, number) - channel(pb, number));
        sum += difference;
        largest = std::max(largest, difference);
      }
      if (largest > kVisible) ++visible;
      markRow[x] = largest == 0 ? 0xFFFFFF : largest > kVisible ? 0 : 0xA0A0A0;
    }
  }
  cairo_surface_mark_dirty(marks);
  const double pixels = static_cast<double>(a.width) * a.height;
  return {static_cast<double>(visible) / pixels, static_cast<double>(sum) / pixels / 3};
}

std::string failureOf(const fs::path& expectedFile, const fs::path& actualFile,
                      const fs::path& marksFile) {
  const Picture expected = load(expectedFile), actual = load(actualFile);
  if (!expected.surface) return "the expected picture cannot be read";
  if (!actual.surface) return "it was not drawn";
  if (expected.width != actual.width || expected.height != actual.height) return "another size";
  const CairoSurface marks(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, expected.width, expected.height));
  const Difference difference = compare(expected, actual, marks.get());
  if (!difference.tooLarge()) return "";
  cairo_surface_write_to_png(marks.get(), marksFile.c_str());
  return std::to_string(difference.visible * 100) + " % of the pixels, on average " +
         std::to_string(difference.average);
}

std::set<std::string> picturesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".png") names.insert(entry.path().stem().string());
  }
  return names;
}

void keep(const fs::path& from, const fs::path& to) {
  std::error_code ignored;  // one of the two may be what is missing
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, ignored);
}

int run(const fs::path& expected, const fs::path& actual, const fs::path& differences) {
  std::set<std::string> names = picturesIn(expected);
  names.merge(picturesIn(actual));
  if (names.empty()) {
    std::cerr << "no pictures\n";
    return 1;
  }
  int failures = 0;
  for (const std::string& name : names) {
    const std::string file = name + ".png";
    const std::string failure =
        failureOf(expected / file, actual / file, differences / (name + "-difference.png"));
    if (failure.empty()) continue;
    ++failures;
    std::cerr << name << ": " << failure << '\n';
    keep(expected / file, differences / (name + "-expected.png"));
    keep(actual / file, differences / (name + "-actual.png"));
  }
  std::cout << names.size() << " pictures, " << failures << " differ\n";
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: compare_pictures EXPECTED-FOLDER ACTUAL-FOLDER DIFFERENCES-FOLDER\n";
    return 2;
  }
  return run(argv[1], argv[2], argv[3]);
}
