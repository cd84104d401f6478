#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace host {

// Puts the bytes into a file, in place of the whole old one. They are written beside it first:
// when that fails, HostError tells why and the old file is as it was.
void writeWhole(const std::wstring& path, std::span<const std::byte> bytes);

// All of a file's bytes. HostError when it cannot be read or is larger than most.
std::string readWhole(const std::wstring& path, std::size_t most);

}  // namespace host
