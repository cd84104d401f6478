#include "platform/texts.h"

#include <windows.h>

#include "platform/gdi/wideText.h"

namespace platform {
namespace {

bool isUtf8(std::string_view text) {
  return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                             static_cast<int>(text.size()), nullptr, 0) > 0;
}

}  // namespace

std::string textToUtf8(std::string_view text) {
  if (text.empty()) return {};
  if (isUtf8(text)) return std::string(text);
  const int bytes = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
  if (length <= 0) return toUtf8(toWide(text));
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), length);
  return toUtf8(wide);
}

}  // namespace platform
