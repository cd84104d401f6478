#include "dialogs/fileDialogs.h"

#include <commdlg.h>

#include <vector>

namespace form {
namespace {

constexpr DWORD kLongestName = 32768;

OPENFILENAMEW request(HWND owner, const wchar_t* title, const wchar_t* kinds,
                      std::vector<wchar_t>& name) {
  OPENFILENAMEW wanted = {};
  wanted.lStructSize = sizeof wanted;
  wanted.hwndOwner = owner;
  wanted.lpstrTitle = title;
  wanted.lpstrFilter = kinds;
  wanted.lpstrFile = name.data();
  wanted.nMaxFile = static_cast<DWORD>(name.size());
  wanted.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  return wanted;
}

}  // namespace

std::optional<std::wstring> askOpenFile(HWND owner, const wchar_t* title, const wchar_t* kinds) {
  std::vector<wchar_t> name(kLongestName);
  OPENFILENAMEW wanted = request(owner, title, kinds, name);
  wanted.Flags |= OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
  if (!GetOpenFileNameW(&wanted)) return std::nullopt;
  return std::wstring(name.data());
}

std::optional<std::wstring> askSaveFile(HWND owner, const wchar_t* title, const wchar_t* kinds,
                                        const std::wstring& preset, const wchar_t* ending) {
  std::vector<wchar_t> name(kLongestName);
  preset.copy(name.data(), name.size() - 1);
  OPENFILENAMEW wanted = request(owner, title, kinds, name);
  wanted.lpstrDefExt = ending;
  wanted.Flags |= OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOREADONLYRETURN;
  if (!GetSaveFileNameW(&wanted)) return std::nullopt;
  return std::wstring(name.data());
}

}  // namespace form
