#include "netcdf/remoteName.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace ocxNetNc {
namespace {

constexpr std::string_view kEndOfProtocol = "://";

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string small(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return small(c); });
  return result;
}

// Where the protocol begins: behind blanks and client parameters.
std::size_t protocolAt(std::string_view name) {
  std::size_t at = 0;
  while (at < name.size()) {
    if (name[at] == ' ') {
      ++at;
    } else if (name[at] == '[') {
      const std::size_t end = name.find(']', at);
      if (end == std::string_view::npos) break;
      at = end + 1;
    } else {
      break;
    }
  }
  return at;
}

// The protocol's length; 0 for a name that is no address.
std::size_t protocolLength(std::string_view name, std::size_t at) {
  const std::size_t end = name.find(kEndOfProtocol, at);
  if (end == std::string_view::npos) return 0;
  const std::string protocol = small(name.substr(at, end - at));
  constexpr std::array<std::string_view, 5> known = {"http", "https", "dods", "dap4", "s3"};
  return std::find(known.begin(), known.end(), protocol) == known.end() ? 0 : protocol.size();
}

}  // namespace

bool isAddress(std::string_view name) { return protocolLength(name, protocolAt(name)) > 0; }

std::string libraryName(std::string name) {
  const std::size_t at = protocolAt(name);
  const std::size_t length = protocolLength(name, at);
  name.replace(at, length, small(std::string_view(name).substr(at, length)));
  return name;
}

}  // namespace ocxNetNc
