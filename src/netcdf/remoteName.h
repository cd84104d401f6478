#pragma once

#include <string>
#include <string_view>

#include "util/credentials.h"

// Names of data sets that are addresses of a server.
namespace ocxNetNc {

// True for an address: http, https, dods, or dap4 and s3, which are refused, in any letter case,
// "://", and what comes after it, also behind client parameters in brackets
// ("[noprefetch]http://...").
bool isAddress(std::string_view name);

using util::withoutCredentials;

// The name as the netCDF library takes it: it knows protocols in small letters only.
std::string libraryName(std::string name);

}  // namespace ocxNetNc
