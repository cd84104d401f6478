#pragma once

#include <string>
#include <string_view>

namespace platform {

// Writes a file completely or not at all: beside its final place, then renamed. A link is
// followed; a device or pipe is written straight. A failure throws std::runtime_error with a
// text for the user, leaves what was there before, and nothing beside it.
void writeWholeFile(const std::string& path, std::string_view contents);

}  // namespace platform
