#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "platform/PictureBox.h"

namespace cli_test {

// What a picture of vectors is made of.
struct Strokes {
  std::map<platform::Colour, double> lines;  // the length of all lines of a colour
  std::size_t letters = 0;                   // blanks count too
};

// What stands in an SVG file as the program writes it.
Strokes strokesOf(const std::string& svg);

}  // namespace cli_test
