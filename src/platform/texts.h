#pragma once

#include <string>
#include <string_view>

namespace platform {

// A file name (UTF-8) as the netCDF library takes it: the ANSI code page on Windows, a name
// that does not survive that conversion being replaced by its short path; unchanged elsewhere.
// Addresses pass through unchanged.
std::string libraryFileName(std::string_view name);

// A text of a data set as UTF-8: unchanged when it is valid UTF-8, otherwise taken as the ANSI
// code page (Windows-1252 where there is none).
std::string textToUtf8(std::string_view text);

}  // namespace platform
