#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace util {
namespace credentials {

template <class Letter>
std::basic_string<Letter> erased(std::basic_string<Letter> name) {
  constexpr std::array<Letter, 3> protocolEnd = {':', '/', '/'};
  constexpr std::array<Letter, 3> hostEnd = {'/', '?', '#'};
  const std::basic_string_view<Letter> mark(protocolEnd.data(), protocolEnd.size());
  const std::basic_string_view<Letter> ends(hostEnd.data(), hostEnd.size());
  for (std::size_t at = name.find(mark); at != name.npos; at = name.find(mark, at)) {
    at += mark.size();
    const std::size_t end = std::min(name.find_first_of(ends, at), name.size());
    const std::size_t sign = name.rfind(Letter{'@'}, end);
    if (sign != name.npos && sign >= at && sign < end) name.erase(at, sign + 1 - at);
  }
  return name;
}

}  // namespace credentials

// An address without user names and passwords ("user:password@" behind "://", also of an address
// within another). They are for the server alone: whatever is shown, written or remembered goes
// through here. Names without any come back as they are. It stands in a header of its own, so that
// programs which know the control by its members alone keep the same rule.
inline std::string withoutCredentials(std::string name) {
  return credentials::erased(std::move(name));
}
inline std::wstring withoutCredentials(std::wstring name) {
  return credentials::erased(std::move(name));
}

}  // namespace util
