#include "svgStrokes.h"

#include <cmath>
#include <sstream>

#include "CliTest.h"

namespace cli_test {
namespace {

// The text between two others from a place on; empty when they are not there.
std::string between(const std::string& text, const std::string& before, const std::string& after) {
  const std::size_t at = text.find(before);
  if (at == std::string::npos) return {};
  const std::size_t start = at + before.size();
  return text.substr(start, text.find(after, start) - start);
}

// "96.078431%,0%,100%"
platform::Colour colourOf(const std::string& percents) {
  std::istringstream stream(percents);
  int components[3] = {};
  for (int& component : components) {
    double percent = 0;
    char sign = 0, comma = 0;
    stream >> percent >> sign >> comma;
    component = static_cast<int>(std::lround(percent * 2.55));
  }
  return platform::rgb(components[0], components[1], components[2]);
}

// "M 1 2 L 3 4 L 5 6 M 7 8 L 9 10 "
double lengthOf(const std::string& path) {
  std::istringstream stream(path);
  char command = 0;
  double x = 0, y = 0, length = 0;
  for (double nextX = 0, nextY = 0; stream >> command >> nextX >> nextY; x = nextX, y = nextY) {
    EXPECT_TRUE(command == 'M' || command == 'L') << path;
    if (command == 'L') length += std::hypot(nextX - x, nextY - y);
  }
  return length;
}

}  // namespace

Strokes strokesOf(const std::string& svg) {
  Strokes strokes;
  strokes.letters = static_cast<std::size_t>(count(svg, "<use "));
  std::istringstream lines(svg);
  for (std::string line; std::getline(lines, line);) {
    const std::string colour = between(line, "stroke:rgb(", ")");
    if (!colour.empty()) strokes.lines[colourOf(colour)] += lengthOf(between(line, " d=\"", "\""));
  }
  return strokes;
}

}  // namespace cli_test
