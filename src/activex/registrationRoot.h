#pragma once

#include <windows.h>

#include <string>

namespace activex {

// Whom a registration is for: everybody on the machine, which takes an administrator, or the
// current user.
enum class Scope { Machine, User };

// The classes part of the registry that a scope writes to, never the merged view of both: a
// machine's registration must leave a user's own alone. Keys are paths below it.
class RegistrationRoot {
 public:
  explicit RegistrationRoot(Scope scope);
  ~RegistrationRoot();
  RegistrationRoot(const RegistrationRoot&) = delete;
  RegistrationRoot& operator=(const RegistrationRoot&) = delete;

  // name null: the key's own value. False when any step is refused.
  bool write(const std::wstring& key, const wchar_t* name, const std::wstring& text) const;
  bool exists(const std::wstring& key) const { return existsIn(key, 0); }
  // As programs of the other bitness see it. On a 32-bit Windows there is no such view, and this
  // is the same as exists.
  bool existsForOtherBitness(const std::wstring& key) const;
  // Removes a key with all below it; true also when there is none.
  bool removeTree(const std::wstring& key) const;
  // Removes a key that holds nothing; any other stays.
  void removeIfEmpty(const std::wstring& key) const;

 private:
  bool existsIn(const std::wstring& key, REGSAM view) const;
  HKEY root_ = nullptr;  // null: there is none, and nothing can be written
};

}  // namespace activex
