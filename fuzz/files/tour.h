#pragma once

#include <string>

namespace fuzz {

enum class Outcome { Refused = 0, Opened = 1, Drawn = 2 };

// Does with a data set (UTF-8 name) what a program does that uses the control: opens it, chooses
// one variable after another, and draws sections along, across and through the grid, profiles and
// further time steps; goes on where the control refuses, as careless programs do. Begins with the
// state of a control just loaded. Drawn: the values of at least one section were read.
Outcome tour(const std::string& name);

}  // namespace fuzz
