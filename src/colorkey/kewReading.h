#pragma once

#include <cstdint>
#include <functional>

#include "colorkey/kewDocument.h"
#include "colorkey/kewListing.h"

namespace ModColor {

// Takes the divisions below a variable element one by one in document order, k = 1, 2, .., and
// returns their number. A division's numbers are those at the start of the texts of its first
// low, high and color. Run-time error 91 for a division without one of the three; 6 for a bound
// beyond the single range, for a colour (rounded, halves to even) beyond 32 bits, and for a
// division that a 16-bit counter cannot count.
int32_t readDivisions(pugi::xml_node variable,
                      const std::function<void(int32_t k, const KewDivision&)>& take);

}  // namespace ModColor
