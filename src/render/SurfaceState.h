#pragma once

#include <cstdint>

#include "platform/PictureBox.h"

namespace KelvaneMain {

// The drawing state of a surface, put back however the drawing ends.
class SurfaceState {
 public:
  explicit SurfaceState(platform::PictureBox& surface)
      : surface_(surface),
        font_(surface.Font),
        foreColor_(surface.ForeColor),
        drawWidth_(surface.DrawWidth) {}
  ~SurfaceState() {
    surface_.Font = font_;
    surface_.ForeColor = foreColor_;
    surface_.DrawWidth = drawWidth_;
  }
  SurfaceState(const SurfaceState&) = delete;
  SurfaceState& operator=(const SurfaceState&) = delete;

 private:
  platform::PictureBox& surface_;
  platform::Font font_;
  platform::Colour foreColor_;
  int32_t drawWidth_;
};

}  // namespace KelvaneMain
