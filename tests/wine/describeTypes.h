#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace winetest {

// A type library as lines of text: everything that a program compiled against it depends on.
std::string describeTypes(ITypeLib& library);

}  // namespace winetest
