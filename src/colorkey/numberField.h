#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ModColor {

// What the numeric edit fields of the dialogs hold. The decimal separator is the user's; "." is
// always taken as well. Blanks around the number do not count.

// A number that single precision can hold; nothing when the text is anything else or out of range.
std::optional<double> numberOfField(std::string_view text, std::string_view separator);
// A whole number of 32 bits.
std::optional<int32_t> countOfField(std::string_view text);

// The shortest text that reads back: as a single where the number is one, else as a double.
std::string fieldText(double number, std::string_view separator);

}  // namespace ModColor
