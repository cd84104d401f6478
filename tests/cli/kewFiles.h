#pragma once

#include <string>

namespace cli_test {

// Writes a file with the text.
void writeFile(const std::string& path, const std::string& text);

// The elements of a KEW file.
std::string kewDivision(const std::string& low, const std::string& high, const std::string& color);
std::string kewVariable(const std::string& name, const std::string& divisions);
std::string kewFile(const std::string& variables);

}  // namespace cli_test
