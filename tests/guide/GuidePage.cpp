#include "GuidePage.h"

#include <sstream>

namespace winetest {
namespace {

// What follows a mark in a line; false when the line has no such mark.
bool follows(const std::string& line, const std::string& mark, std::string& text) {
  const std::size_t place = line.find(mark);
  if (place == std::string::npos) return false;
  text = line.substr(place + mark.size());
  return true;
}

}  // namespace

GuidePage readGuidePage(const std::string& page, const std::string& language,
                        const std::string& comment) {
  GuidePage read;
  std::istringstream lines(page);
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("```", 0) == 0) {
      inside = !inside && line == "```" + language;
      continue;
    }
    if (!inside) continue;
    read.program += line + "\r\n";
    std::string text;
    if (follows(line, comment + " -> ", text)) read.output += text + "\n";
    if (follows(line, comment + " box: ", text)) {
      const std::size_t colon = text.find(": ");
      read.boxes.push_back({text.substr(0, colon), text.substr(colon + 2)});
    }
  }
  return read;
}

}  // namespace winetest
