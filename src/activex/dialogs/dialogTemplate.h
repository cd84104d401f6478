#pragma once

#include <windows.h>

#include <vector>

namespace activex {

// A dialog template of this library for DialogBoxIndirect, in the font that the user has chosen
// for the texts of dialogs: sizes in dialog units follow. Empty when there is no such template.
// Where they would make the dialog wider than the screen, the font is smaller.
std::vector<DWORD> dialogTemplate(int id);
// The size of its client area in dialog units, whatever became of the window; 0 when there is no
// such template.
SIZE dialogUnits(int id);

}  // namespace activex
