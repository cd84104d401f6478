#pragma once

#include <cstdint>
#include <vector>

#include "platform/PictureBox.h"

namespace ModColor {

// The arithmetic behind the rows of the colour-key editor.

struct RowRange {
  double low = 0, high = 0;
  bool operator==(const RowRange&) const = default;
};

// The range from minimum, |maximum - minimum| wide, in equal divisions; a range given upside
// down is covered upwards from its minimum. Run-time error 11 for less than one division; 6 for
// more than a 16-bit counter can count, and for bounds beyond the double range.
std::vector<RowRange> equalDivisions(double minimum, double maximum, int32_t divisions);

// Colours from first on in steps of whole numbers, one for each row: the rows divide the way to
// last, so that the last row stays a step short of it, and the step's rounding (halves to even)
// adds up. Components are limited to 0..255. What a colour holds above its 24 bits does not
// count. Run-time error 11 for less than one row.
std::vector<platform::Colour> colourRamp(platform::Colour first, platform::Colour last,
                                         int32_t rows);

}  // namespace ModColor
