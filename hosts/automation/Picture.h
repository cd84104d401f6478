#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace host {

// Pixels 0x00RRGGBB in rows from the top.
struct Picture {
  int width = 0, height = 0;
  std::vector<uint32_t> pixels;

  uint32_t at(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
  }
  bool operator==(const Picture&) const = default;
};

// What draw leaves on a white device context of width x height.
Picture takePicture(int width, int height, const std::function<void(HDC)>& draw);

enum class PictureKind { Png, Bmp };

// The bytes of a picture file. HostError when they cannot be made.
std::vector<std::byte> encodePicture(const Picture& picture, PictureKind kind);

// Writes a PNG, or a BMP when the name ends so. HostError when the file cannot be written; what
// was there before is kept then.
void savePicture(const Picture& picture, const std::wstring& path);

}  // namespace host
