#pragma once

#include <string>
#include <vector>

#include "model/pathText.h"

namespace form {

// The data sets that were opened last, the newest first, each with the path it was last seen
// along. Addresses are kept and found without user name and password.
class RecentList {
 public:
  static constexpr std::size_t kMost = 8;
  struct Entry {
    std::wstring name;
    Path path;  // empty: none yet
  };

  const std::vector<Entry>& entries() const { return entries_; }

  // To the front. A name that is there, in capitals or not, keeps its path when none is given.
  void add(const std::wstring& name, const Path& path = {});
  void remove(const std::wstring& name);
  // To the end, while there is room: for reading a stored list.
  void append(Entry entry);
  Path pathOf(const std::wstring& name) const;

 private:
  std::vector<Entry>::const_iterator find(const std::wstring& name) const;
  std::vector<Entry> entries_;
};

// A menu's text for the entry number k from 0: its digit underlined, a long name shortened in the
// middle, no letter of the name taken for a mnemonic, and no user name or password of an address.
std::wstring menuText(std::size_t k, const std::wstring& name);

// The last part of a file's name or an address, without user name and password.
std::wstring shortName(const std::wstring& whole);

}  // namespace form
