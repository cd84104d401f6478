#include "session/Settings.h"

#include <algorithm>
#include <vector>

#include "model/address.h"

namespace form {
namespace {

constexpr wchar_t kKey[] = L"Software\\Kelvane\\KelvaneHost";
constexpr wchar_t kRecent[] = L"Recent", kPath[] = L"Path", kWindow[] = L"Window",
                  kSpeed[] = L"Speed";

std::wstring numbered(const wchar_t* name, std::size_t k) { return name + std::to_wstring(k + 1); }

// A value's bytes; none when there is no such value of that type.
std::vector<BYTE> read(const std::wstring& name, DWORD type) {
  HKEY key = nullptr;
  std::vector<BYTE> bytes;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kKey, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return bytes;
  }
  DWORD found = 0, size = 0;
  if (RegQueryValueExW(key, name.c_str(), nullptr, &found, nullptr, &size) == ERROR_SUCCESS &&
      found == type) {
    bytes.resize(size);
    if (RegQueryValueExW(key, name.c_str(), nullptr, &found, bytes.data(), &size) !=
        ERROR_SUCCESS) {
      size = 0;
    }
    bytes.resize(size);
  }
  RegCloseKey(key);
  return bytes;
}

void write(const std::wstring& name, DWORD type, const void* bytes, std::size_t size) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS) {
    return;
  }
  RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE*>(bytes),
                 static_cast<DWORD>(size));
  RegCloseKey(key);
}

template <class Record>
std::optional<Record> readRecord(const std::wstring& name, DWORD type) {
  const std::vector<BYTE> bytes = read(name, type);
  if (bytes.size() != sizeof(Record)) return std::nullopt;
  Record record;
  std::copy(bytes.begin(), bytes.end(), reinterpret_cast<BYTE*>(&record));
  return record;
}

Path pathIn(const std::wstring& text) {
  ReadPath read = readPath(text);
  return read.problem.empty() ? std::move(read.points) : Path();
}

}  // namespace

std::wstring Settings::text(const std::wstring& name) {
  const std::vector<BYTE> bytes = read(name, REG_SZ);
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::copy_n(bytes.begin(), text.size() * sizeof(wchar_t), reinterpret_cast<BYTE*>(text.data()));
  return text.substr(0, text.find(L'\0'));
}

void Settings::setText(const std::wstring& name, const std::wstring& text) {
  write(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

RecentList Settings::recent() const {
  RecentList list;
  bool password = false;
  for (std::size_t k = 0; k < RecentList::kMost; ++k) {
    const std::wstring name = text(numbered(kRecent, k));
    password = password || withoutCredentials(name) != name;
    list.append({name, pathIn(text(numbered(kRecent, k) + kPath))});
  }
  // Versions that kept one have left it there.
  if (password) setRecent(list);
  return list;
}

void Settings::setRecent(const RecentList& list) const {
  for (std::size_t k = 0; k < RecentList::kMost; ++k) {
    const bool there = k < list.entries().size();
    setText(numbered(kRecent, k), there ? list.entries()[k].name : L"");
    setText(numbered(kRecent, k) + kPath, there ? writePath(list.entries()[k].path, L"\n") : L"");
  }
}

Path Settings::lastPath() const { return pathIn(text(kPath)); }
void Settings::setLastPath(const Path& path) const { setText(kPath, writePath(path, L"\n")); }

std::optional<int> Settings::speed() const {
  const auto number = readRecord<DWORD>(kSpeed, REG_DWORD);
  return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

void Settings::setSpeed(int index) const {
  const auto number = static_cast<DWORD>(index);
  write(kSpeed, REG_DWORD, &number, sizeof number);
}

std::optional<WINDOWPLACEMENT> Settings::window() const {
  auto placement = readRecord<WINDOWPLACEMENT>(kWindow, REG_BINARY);
  if (!placement || placement->length != sizeof(WINDOWPLACEMENT)) return std::nullopt;
  if (MonitorFromRect(&placement->rcNormalPosition, MONITOR_DEFAULTTONULL) == nullptr) {
    return std::nullopt;
  }
  const bool maximized = placement->showCmd == SW_SHOWMAXIMIZED;
  placement->showCmd = maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
  return placement;
}

void Settings::setWindow(const WINDOWPLACEMENT& placement) const {
  write(kWindow, REG_BINARY, &placement, sizeof placement);
}

}  // namespace form
