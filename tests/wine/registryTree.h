#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace winetest {

// Every key and value below a key: path (a value's path ends in ":" and its name) to contents, which
// begin with the type of the value.
using RegistryTree = std::map<std::wstring, std::wstring>;
RegistryTree readTree(HKEY root, const std::wstring& path);

// What is in one tree and not, or not the same, in the other; for messages.
std::string difference(const RegistryTree& before, const RegistryTree& after);

}  // namespace winetest
