#include "activex/registrationJournal.h"

#include <algorithm>

namespace activex {
namespace {

RegistryData textData(const std::wstring& text) {
  const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
  return {REG_SZ, {bytes, bytes + (text.size() + 1) * sizeof(wchar_t)}};
}

// Those of the key and the keys above it that do not exist, from the top.
std::vector<std::wstring> missingKeys(const RegistrationRoot& root, const std::wstring& key) {
  std::vector<std::wstring> missing;
  std::wstring path = key;
  while (!path.empty() && !root.exists(path)) {
    missing.push_back(path);
    const std::size_t end = path.find_last_of(L'\\');
    path.resize(end == std::wstring::npos ? 0 : end);
  }
  std::reverse(missing.begin(), missing.end());
  return missing;
}

}  // namespace

bool RegistrationJournal::write(const std::wstring& key, const wchar_t* name,
                                const std::wstring& text) {
  Written step = {key, name, {}, missingKeys(root_, key)};
  if (!root_.read(key, name, step.before)) return false;
  // Remembered first: a write that is refused may have made some of the keys.
  writes_.push_back(std::move(step));
  return root_.write(key, name, textData(text));
}

RegistrationJournal::~RegistrationJournal() {
  for (; !writes_.empty(); writes_.pop_back()) {
    const Written& last = writes_.back();
    if (last.before) {
      root_.write(last.key, last.name, *last.before);
    } else {
      root_.removeValue(last.key, last.name);
    }
    for (auto key = last.made.rbegin(); key != last.made.rend(); ++key) root_.removeIfEmpty(*key);
  }
}

}  // namespace activex
