#pragma once

#include <windows.h>

#include <vector>

namespace activex {

// A dialog template of this library for DialogBoxIndirect, in the font that the user has chosen
// for the texts of dialogs: sizes in dialog units follow. Empty when there is no such template.
std::vector<DWORD> dialogTemplate(int id);

}  // namespace activex
