#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace winetest {

struct SeenBox {
  std::string caption, text;
  bool operator==(const SeenBox&) const = default;
};

inline void PrintTo(const SeenBox& box, std::ostream* out) {
  *out << "[" + box.caption + "] " + box.text;
}

struct Outcome {
  unsigned long status = 0;
  bool ended = false;  // false: it was ended after the time limit
  std::string output;  // what it wrote, lines ending in a line feed
  std::vector<SeenBox> boxes;
};

// Who answers the message boxes of a program: this process, which remembers them and says OK, or
// the program itself.
enum class Boxes { AnsweredHere, LeftAlone };

// Runs a program and waits for its end.
Outcome runProgram(const std::wstring& commandLine, Boxes boxes = Boxes::AnsweredHere);

}  // namespace winetest
