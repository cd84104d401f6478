#include "platform/gdi/fileNames.h"

#include "platform/gdi/wideText.h"

namespace platform {
namespace {

// From this length on; 40 is more than a part's name is longer than that of its file.
constexpr std::size_t kLong = MAX_PATH - 40;

std::wstring absoluteName(const std::wstring& name) {
  const DWORD room = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
  if (room == 0) return name;
  std::wstring absolute(room, L'\0');
  const DWORD length = GetFullPathNameW(name.c_str(), room, absolute.data(), nullptr);
  if (length == 0 || length >= room) return name;
  absolute.resize(length);
  return absolute;
}

}  // namespace

std::wstring systemName(const std::string& path) {
  const std::wstring name = absoluteName(toWide(path));
  if (name.size() < kLong || name.starts_with(L"\\\\?\\") || name.starts_with(L"\\\\.\\")) {
    return name;
  }
  return name.starts_with(L"\\\\") ? L"\\\\?\\UNC\\" + name.substr(2) : L"\\\\?\\" + name;
}

std::string reasonOf(DWORD error) {
  constexpr DWORD kLongest = 500;
  wchar_t text[kLongest];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                error, 0, text, kLongest, nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  return length > 0 ? toUtf8({text, length}) : "Error " + std::to_string(error);
}

}  // namespace platform
