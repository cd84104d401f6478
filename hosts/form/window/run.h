#pragma once

#include <string>

#include "window/MainWindow.h"

namespace form {

// Opens the data set of this name, unless that is empty, and runs the window until it is closed:
// the program's exit status.
int run(MainWindow& window, const std::wstring& name);

}  // namespace form
