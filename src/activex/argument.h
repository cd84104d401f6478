#pragma once

#include <windows.h>

#include "activex/OwnedVariant.h"

namespace activex {

// What a host gives as an argument, as the type that a function takes: VT_I4, VT_R4, VT_BOOL,
// VT_BSTR, or VT_UI4 for the 32 bits of a colour, which may as well be given as a negative number.
// References are followed, objects stand for their default properties. Numbers in texts are read
// as the caller's language writes them.
//
// DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW or DISP_E_BADVARTYPE when it cannot be one;
// DISP_E_PARAMNOTOPTIONAL when it is there only to say that it was left out.
HRESULT takeArgument(const VARIANT& given, VARTYPE wanted, LCID language, OwnedVariant& taken);

}  // namespace activex
