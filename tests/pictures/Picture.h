#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/cairo/cairoHandles.h"

namespace pictures {

// A picture in memory, pixels as 0x00RRGGBB; empty when the file cannot be read.
class Picture {
 public:
  static Picture load(const std::filesystem::path& file);
  Picture() = default;
  Picture(int width, int height);  // white

  bool empty() const { return surface_ == nullptr; }
  int width() const { return width_; }
  int height() const { return height_; }
  uint32_t at(int x, int y) const { return row(y)[x] & 0xFFFFFF; }
  void set(int x, int y, uint32_t pixel) { row(y)[x] = pixel; }
  bool save(const std::filesystem::path& file) const;
  cairo_surface_t* surface() const { return surface_.get(); }

 private:
  uint32_t* row(int y) const;
  platform::CairoSurface surface_;
  int width_ = 0, height_ = 0;
};

// Why two pictures are not the same, by the rules of the README beside this file; empty when they
// are. Of pictures of one size, marks becomes a picture of what differs.
std::string differenceOf(const Picture& expected, const Picture& actual, Picture& marks);

}  // namespace pictures
