#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// The name (UTF-8) of a file in a folder that lives as long as the process.
std::string scratchFile(const std::string& name);
// Makes it a file of exactly these bytes; its name.
std::string writeScratch(const std::string& name, std::string_view bytes);
std::string contentsOf(const std::string& fileName);
// What stands in the folder, in order.
std::vector<std::string> scratchContents();
// Removes a file of the folder, if it is there.
void removeScratch(const std::string& name);

}  // namespace fuzz
