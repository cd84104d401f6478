#pragma once

#include <string>
#include <string_view>

namespace platform {

// A text of a data set as UTF-8: unchanged when it is valid UTF-8, otherwise taken as the ANSI
// code page (Windows-1252 where there is none).
std::string textToUtf8(std::string_view text);

}  // namespace platform
