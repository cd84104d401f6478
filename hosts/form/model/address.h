#pragma once

#include <string>

namespace form {

// True for the address of a data set on a server, false for a file's name.
bool isAddress(const std::wstring& name);

// The name without user names and passwords ("user:password@" behind "://"). They are for the
// server alone: whatever the program shows or remembers goes through here. Names without any come
// back as they are.
std::wstring withoutCredentials(std::wstring name);

}  // namespace form
