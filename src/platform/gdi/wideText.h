#pragma once

#include <string>
#include <string_view>

namespace platform {

// UTF-8 to UTF-16 and back. Bytes that are no UTF-8, and lone surrogates, become the
// replacement character; zero characters are kept.
std::wstring toWide(std::string_view text);
std::string toUtf8(std::wstring_view text);

}  // namespace platform
