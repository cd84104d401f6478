#pragma once

#include <string>

#include "util/credentials.h"

namespace form {

// True for the address of a data set on a server, false for a file's name.
bool isAddress(const std::wstring& name);

using util::withoutCredentials;

}  // namespace form
