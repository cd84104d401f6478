#pragma once

#include <optional>
#include <string>
#include <vector>

#include "activex/registrationRoot.h"

namespace activex {

// Writes texts to the registry and remembers what was there, so that a registration that fails
// leaves an earlier one as it was.
class RegistrationJournal {
 public:
  // root must outlive the journal.
  explicit RegistrationJournal(const RegistrationRoot& root) : root_(root) {}
  // Puts back what was there before the first write, unless keep was called; goes on where a step
  // is refused.
  ~RegistrationJournal();
  RegistrationJournal(const RegistrationJournal&) = delete;
  RegistrationJournal& operator=(const RegistrationJournal&) = delete;

  // name null: the key's own value. False when any step is refused, also when what is there cannot
  // be read and so could not be put back.
  bool write(const std::wstring& key, const wchar_t* name, const std::wstring& text);
  void keep() { writes_.clear(); }

 private:
  struct Written {
    std::wstring key;
    const wchar_t* name;
    std::optional<RegistryData> before;
    std::vector<std::wstring> made;  // the keys that were missing, from the top
  };
  const RegistrationRoot& root_;
  std::vector<Written> writes_;
};

}  // namespace activex
