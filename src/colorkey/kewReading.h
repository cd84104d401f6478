#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "colorkey/kewDocument.h"
#include "colorkey/kewListing.h"

namespace ModColor {

// A division element. Its numbers are those at the start of the texts of its first low, high and
// color. Run-time error 91 where that is missing; 6 for a bound beyond the single range or a
// colour (rounded, halves to even) beyond 32 bits.
struct DivisionElement {
  float low() const;
  float high() const;
  platform::Colour color() const;
  KewDivision whole() const { return {low(), high(), color()}; }

  pugi::xml_node lowElement, highElement, colorElement;  // null where missing
};

using TakeDivision = std::function<void(int32_t k, const DivisionElement&)>;

// Takes the divisions below a variable element one by one in document order, k = 1, 2, .., and
// returns their number. Run-time error 6 for a division that a 16-bit counter cannot count.
int32_t readDivisions(pugi::xml_node variable, const TakeDivision& take);

// The same for the first variable element of a name in a file. Returns -1 when the file is
// missing, malformed or without the variable. Run-time error 5 for a name with a double quote.
int32_t readVariable(const std::string& fileName, const std::string& variable,
                     const TakeDivision& take);

// Names stand between double quotes in the query for their key: one with a quote of its own would
// end it early and could make it another, wider query. Run-time error 5 for such a name.
void checkQueryable(const std::string& name);

}  // namespace ModColor
