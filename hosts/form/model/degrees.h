#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace form {

// A number of degrees as people write it: with a decimal point or a comma, a degree sign and a
// letter of the compass after it if they like (W and S are negative). Nothing for anything else.
std::optional<double> readDegrees(std::wstring_view text);

// The number with a decimal point and as few digits as tell it, at most six after the point.
std::wstring writeDegrees(double degrees);

// Without the blanks around it.
std::wstring_view trimmed(std::wstring_view text);

}  // namespace form
