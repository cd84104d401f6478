#pragma once

#include <string>
#include <string_view>

// Names of data sets that are addresses of a server.
namespace ocxNetNc {

// True for an address: http, https or dods in any letter case, "://", and what comes after it,
// also behind client parameters in brackets ("[noprefetch]http://...").
bool isAddress(std::string_view name);

// The name without user names and passwords ("user:password@"), which are for the server alone;
// what is shown, written or reported goes through here. Names without any come back as they are.
std::string withoutCredentials(std::string name);

// The name as the netCDF library takes it: it knows protocols in small letters only.
std::string libraryName(std::string name);

}  // namespace ocxNetNc
