#pragma once

#include <windows.h>

#include <string>

// Identifiers and numbers as the registry spells them.
namespace activex {

// With braces, in capitals.
std::wstring textOf(REFGUID id);
// Without leading zeros, in small letters.
std::wstring hexadecimal(unsigned long number);

}  // namespace activex
