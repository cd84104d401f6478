#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace platform {

// What reading and writing whole files has in common on every system.

// Throws std::runtime_error: Cannot read "path": reason. The action is "read" or "write"; of a
// name with a zero character in it, the part before is shown.
[[noreturn]] void failFile(const char* action, const std::string& path, const std::string& reason);

// Reasons that are the same everywhere.
inline constexpr const char* kIsDirectory = "Is a directory";
inline constexpr const char* kNotRegular = "Not a regular file";
inline constexpr const char* kTooLarge = "File too large";
inline constexpr const char* kBusy = "Another program is writing it";

// Everything that `read` gives; it stores up to `length` bytes at `to` and returns how many, 0 at
// the end only. `expected` is what the file says of its length: a growing file, and some of the
// system's own, have more. Fails for `path` when there are more than `limit` bytes; std::bad_alloc
// when there are more than the memory holds.
std::string readToEnd(const std::string& path, std::uint64_t expected, std::size_t limit,
                      const std::function<std::size_t(char* to, std::size_t length)>& read);

// A file name of its own for every write of a process, so that two writers of one file never
// share what they write.
std::string nameOfPart(unsigned long process);

}  // namespace platform
