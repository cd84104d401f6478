#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace activex {

// Whom a registration is for: everybody on the machine, which takes an administrator, or the
// current user.
enum class Scope { Machine, User };

// What a value of the registry holds, whatever its type.
struct RegistryData {
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;
};

// The classes part of the registry that a scope writes to, never the merged view of both: a
// machine's registration must leave a user's own alone. Keys are paths below it. A value's name is
// null for the key's own value.
class RegistrationRoot {
 public:
  explicit RegistrationRoot(Scope scope);
  ~RegistrationRoot();
  RegistrationRoot(const RegistrationRoot&) = delete;
  RegistrationRoot& operator=(const RegistrationRoot&) = delete;

  bool exists(const std::wstring& key) const;
  // As programs of the other bitness see it. On a 32-bit Windows there is no such view, and this
  // is the same as exists.
  bool existsForOtherBitness(const std::wstring& key) const;
  // False when the value cannot be read; none in data when there is no such key or value.
  bool read(const std::wstring& key, const wchar_t* name, std::optional<RegistryData>& data) const;

  // Makes the key, and those above it, where it is missing. False when any step is refused.
  bool write(const std::wstring& key, const wchar_t* name, const RegistryData& data) const;
  bool removeValue(const std::wstring& key, const wchar_t* name) const;
  // Removes a key with all below it; true also when there is none.
  bool removeTree(const std::wstring& key) const;
  // Removes a key that holds nothing; any other stays.
  void removeIfEmpty(const std::wstring& key) const;

 private:
  HKEY hive_;
  HKEY root_ = nullptr;  // null: there is none, and nothing can be written
};

}  // namespace activex
