#pragma once

#include <cstdint>
#include <string>

#include "Plotter.h"

namespace cli {

struct DrawRequest {
  PictureRequest picture;
  int32_t step = 1;
  std::string output;
};

// Draws a section into a file, which is written completely or not at all.
void draw(const DrawRequest& request);

}  // namespace cli
