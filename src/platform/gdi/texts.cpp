#include "platform/texts.h"

#include <windows.h>

#include <optional>

#include "platform/gdi/wideText.h"

namespace platform {
namespace {

bool isAddress(std::string_view name) { return name.find("://") != std::string_view::npos; }

// The library reads a name as UTF-8 when it can be read so, else in the ANSI code page.
bool isUtf8(std::string_view text) {
  return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                             static_cast<int>(text.size()), nullptr, 0) > 0;
}

// The text in the ANSI code page, or nothing when a character is not in it.
std::optional<std::string> toAnsi(const std::wstring& text) {
  if (text.empty()) return std::string();
  const int units = static_cast<int>(text.size());
  // A code page that is UTF-8 loses nothing and takes neither the flag nor the report.
  const bool everyText = GetACP() == CP_UTF8;
  const DWORD flags = everyText ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL lost = FALSE;
  BOOL* report = everyText ? nullptr : &lost;
  const int length =
      WideCharToMultiByte(CP_ACP, flags, text.data(), units, nullptr, 0, nullptr, report);
  if (length <= 0 || lost) return std::nullopt;
  std::string ansi(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, flags, text.data(), units, ansi.data(), length, nullptr, nullptr);
  return ansi;
}

std::wstring shortPath(const std::wstring& path) {
  const DWORD needed = GetShortPathNameW(path.c_str(), nullptr, 0);
  if (needed == 0) return {};
  std::wstring name(needed, L'\0');
  const DWORD length = GetShortPathNameW(path.c_str(), name.data(), needed);
  name.resize(length < needed ? length : 0);
  return name;
}

}  // namespace

std::string libraryFileName(std::string_view name) {
  if (isAddress(name)) return std::string(name);
  const std::wstring wide = toWide(name);
  for (const std::wstring& spelling : {wide, shortPath(wide)}) {
    const auto ansi = toAnsi(spelling);
    if (ansi && !ansi->empty() && (*ansi == name || !isUtf8(*ansi))) return *ansi;
  }
  // No such file, or a volume without short names, where our library still finds it by this.
  return std::string(name);
}

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
