#include "platform/gdi/wideText.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace platform {
namespace {

// The conversions count in int. A longer text is cut; nothing shows or names that much.
int countOf(std::size_t length) {
  return static_cast<int>(std::min<std::size_t>(length, std::numeric_limits<int>::max() / 4));
}

}  // namespace

std::wstring toWide(std::string_view text) {
  const int bytes = countOf(text.size());
  if (bytes == 0) return {};
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(std::max(length, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), length);
  return wide;
}

std::string toUtf8(std::wstring_view text) {
  const int units = countOf(text.size());
  if (units == 0) return {};
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(std::max(length, 0)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

}  // namespace platform
