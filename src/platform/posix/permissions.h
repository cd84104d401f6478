#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace platform {

// Gives a new file, as yet its owner's alone, the owner, group, permissions and access control list
// of the file `from` that it will replace, of which `old` are the facts. What cannot be given makes
// the permissions fewer, never more. The error of the system, or none.
std::error_code takeOver(int descriptor, const std::filesystem::path& from, const struct stat& old);

}  // namespace platform
