#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// File names are UTF-8.

// True for a file that is there, whatever its kind; false for a folder, for a link that leads
// nowhere and for a name with a zero byte.
bool fileExists(const std::string& path);

// The whole of a regular file. A failure throws std::runtime_error with a text for the user: a
// missing or unreadable file, one that is no regular file, one of more than limit bytes. What the
// memory cannot hold is std::bad_alloc, which says nothing about the file.
std::string readWholeFile(const std::string& path, std::size_t limit);

// When the name of a written file is forced to the disk: by the call, or whenever the system comes
// to it, which is quicker and enough for what can be made again. Until then a machine that loses
// its power comes up with the file that was there before, never with half of the new one.
enum class NameForced { Now, InTime };

// Writes a file completely or not at all, and durably: beside its final place, forced to the
// disk, then renamed. A file that was there keeps its permissions, where the system allows it
// its owner, group and access control list, and on Windows its attributes; a write-protected one
// is refused. A symbolic link is followed; on Windows one that leads nowhere is refused. Another
// hard link keeps the old contents. A device or pipe is written straight. A failure throws
// std::runtime_error with a text for the user, leaves what was there before, and nothing beside
// it. Only a process that is killed meanwhile leaves a file ".kelvane-...part" there.
void writeWholeFile(const std::string& path, std::string_view contents,
                    NameForced nameForced = NameForced::Now);

}  // namespace platform
