#include "activex/registrationRoot.h"

#include "activex/identity.h"

namespace activex {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

bool existsBelow(HKEY above, const std::wstring& key, REGSAM view) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(above, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

bool absent(LSTATUS status) {
  return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

}  // namespace

RegistrationRoot::RegistrationRoot(Scope scope)
    : hive_(scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {
  // Only what a key's opening needs: each later step asks for its own rights.
  if (RegCreateKeyExW(hive_, kClasses, 0, nullptr, 0, KEY_READ, nullptr, &root_, nullptr) !=
      ERROR_SUCCESS) {
    root_ = nullptr;
  }
}

RegistrationRoot::~RegistrationRoot() {
  if (root_ != nullptr) RegCloseKey(root_);
}

bool RegistrationRoot::exists(const std::wstring& key) const {
  return root_ != nullptr && existsBelow(root_, key, 0);
}

bool RegistrationRoot::existsForOtherBitness(const std::wstring& key) const {
  // The whole way in one step: a handle opened in the one view may lead to nothing in the other.
  return existsBelow(hive_, std::wstring(kClasses) + L"\\" + key,
                     kBits == 32 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY);
}

bool RegistrationRoot::read(const std::wstring& key, const wchar_t* name,
                            std::optional<RegistryData>& data) const {
  data.reset();
  HKEY opened = nullptr;
  if (root_ == nullptr) return false;
  LSTATUS status = RegOpenKeyExW(root_, key.c_str(), 0, KEY_QUERY_VALUE, &opened);
  if (status != ERROR_SUCCESS) return absent(status);
  RegistryData found;
  DWORD size = 0;
  status = RegQueryValueExW(opened, name, nullptr, &found.type, nullptr, &size);
  if (status == ERROR_SUCCESS) {
    found.bytes.resize(size);
    status = RegQueryValueExW(opened, name, nullptr, &found.type, found.bytes.data(), &size);
    found.bytes.resize(size);
  }
  RegCloseKey(opened);
  if (status == ERROR_SUCCESS) data = std::move(found);
  return status == ERROR_SUCCESS || absent(status);
}

bool RegistrationRoot::write(const std::wstring& key, const wchar_t* name,
                             const RegistryData& data) const {
  HKEY opened = nullptr;
  if (root_ == nullptr || RegCreateKeyExW(root_, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                          &opened, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LSTATUS written = RegSetValueExW(opened, name, 0, data.type, data.bytes.data(),
                                         static_cast<DWORD>(data.bytes.size()));
  return RegCloseKey(opened) == ERROR_SUCCESS && written == ERROR_SUCCESS;
}

bool RegistrationRoot::removeValue(const std::wstring& key, const wchar_t* name) const {
  HKEY opened = nullptr;
  if (root_ == nullptr) return false;
  LSTATUS status = RegOpenKeyExW(root_, key.c_str(), 0, KEY_SET_VALUE, &opened);
  if (status == ERROR_SUCCESS) {
    status = RegDeleteValueW(opened, name);
    RegCloseKey(opened);
  }
  return status == ERROR_SUCCESS || absent(status);
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
