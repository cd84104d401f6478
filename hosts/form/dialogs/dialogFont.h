#pragma once

#include <windows.h>

#include <vector>

namespace form {

// A dialog template of this program with the user's message font in place of its own, so that the
// dialog, measured in units of its font, grows with it. Empty when there is no such template.
std::vector<DWORD> templateInMessageFont(int id);

}  // namespace form
