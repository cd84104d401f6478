#include "model/address.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace form {
namespace {

constexpr std::wstring_view kEndOfProtocol = L"://";

}  // namespace

bool isAddress(const std::wstring& name) { return name.find(kEndOfProtocol) != std::wstring::npos; }

std::wstring withoutCredentials(std::wstring name) {
  // One address may lie within another, in what is asked of a server.
  for (std::size_t at = name.find(kEndOfProtocol); at != std::wstring::npos;
       at = name.find(kEndOfProtocol, at)) {
    at += kEndOfProtocol.size();
    const std::size_t end = std::min(name.find_first_of(L"/?#", at), name.size());
    const std::size_t sign = name.rfind(L'@', end);
    if (sign != std::wstring::npos && sign >= at && sign < end) name.erase(at, sign + 1 - at);
  }
  return name;
}

}  // namespace form
