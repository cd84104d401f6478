#pragma once

#include <cstdint>
#include <string>

// What a person can do about a failure of a server.
namespace ocxNetNc {

// One or two plain sentences about the library's last refusal of a data set at an address:
// "Status -68: no connection to host:port (Connection refused). Is the server running?" The
// server's own words are quoted. Without credentials.
std::string remoteAdvice(int32_t status);

}  // namespace ocxNetNc
