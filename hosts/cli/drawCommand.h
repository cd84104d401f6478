#pragma once

#include <string>

#include "optionText.h"
#include "sectionRequest.h"

namespace cli {

struct DrawRequest {
  SectionRequest section;
  PictureSize size;
  PictureFormat format = PictureFormat::Png;
  std::string output;
};

// Draws a section into a file, which is written completely or not at all.
void draw(const DrawRequest& request);

}  // namespace cli
