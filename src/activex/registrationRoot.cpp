#include "activex/registrationRoot.h"

#include "activex/identity.h"

namespace activex {

RegistrationRoot::RegistrationRoot(Scope scope) {
  const HKEY hive = scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
  // Only what a key's opening needs: each later step asks for its own rights.
  if (RegCreateKeyExW(hive, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr, &root_,
                      nullptr) != ERROR_SUCCESS) {
    root_ = nullptr;
  }
}

RegistrationRoot::~RegistrationRoot() {
  if (root_ != nullptr) RegCloseKey(root_);
}

bool RegistrationRoot::write(const std::wstring& key, const wchar_t* name,
                             const std::wstring& text) const {
  HKEY opened = nullptr;
  if (root_ == nullptr || RegCreateKeyExW(root_, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                          nullptr, &opened, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  const LSTATUS written = RegSetValueExW(opened, name, 0, REG_SZ,
                                         reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  return RegCloseKey(opened) == ERROR_SUCCESS && written == ERROR_SUCCESS;
}

bool RegistrationRoot::existsForOtherBitness(const std::wstring& key) const {
  return existsIn(key, kBits == 32 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY);
}

bool RegistrationRoot::existsIn(const std::wstring& key, REGSAM view) const {
  HKEY opened = nullptr;
  if (root_ == nullptr ||
      RegOpenKeyExW(root_, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

bool RegistrationRoot::removeTree(const std::wstring& key) const {
  if (root_ == nullptr || !exists(key)) return true;
  return RegDeleteTreeW(root_, key.c_str()) == ERROR_SUCCESS;
}

void RegistrationRoot::removeIfEmpty(const std::wstring& key) const {
  HKEY opened = nullptr;
  if (root_ == nullptr ||
      RegOpenKeyExW(root_, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return;
  }
  DWORD keys = 0, values = 0;
  const LSTATUS counted = RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr,
                                           nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  if (counted == ERROR_SUCCESS && keys == 0 && values == 0) RegDeleteKeyW(root_, key.c_str());
}

}  // namespace activex
