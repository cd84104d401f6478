#include "model/RecentList.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "model/address.h"

namespace form {
namespace {

wchar_t lower(wchar_t letter) {
  return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(letter)));
}

bool sameName(const std::wstring& a, const std::wstring& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t one, wchar_t other) { return lower(one) == lower(other); });
}

}  // namespace

std::vector<RecentList::Entry>::const_iterator RecentList::find(const std::wstring& name) const {
  const std::wstring kept = withoutCredentials(name);
  return std::find_if(entries_.begin(), entries_.end(),
                      [&](const Entry& entry) { return sameName(entry.name, kept); });
}

void RecentList::add(const std::wstring& name, const Path& path) {
  Path known = path.empty() ? pathOf(name) : path;
  remove(name);
  entries_.push_back({withoutCredentials(name), std::move(known)});
  std::rotate(entries_.begin(), entries_.end() - 1, entries_.end());
  if (entries_.size() > kMost) entries_.pop_back();
}

void RecentList::remove(const std::wstring& name) {
  if (const auto found = find(name); found != entries_.end()) entries_.erase(found);
}

void RecentList::append(Entry entry) {
  if (entries_.size() < kMost && !entry.name.empty() && find(entry.name) == entries_.end()) {
    entry.name = withoutCredentials(std::move(entry.name));
    entries_.push_back(std::move(entry));
  }
}

Path RecentList::pathOf(const std::wstring& name) const {
  const auto found = find(name);
  return found != entries_.end() ? found->path : Path();
}

std::wstring menuText(std::size_t k, const std::wstring& name) {
  constexpr std::size_t kLongest = 60, kFront = 15;
  std::wstring shown = withoutCredentials(name);
  if (shown.size() > kLongest) {
    shown.replace(kFront, shown.size() - (kLongest - 3), L"...");
  }
  std::wstring text = L"&" + std::to_wstring(k + 1) + L"  ";
  for (const wchar_t letter : shown) {
    text += letter;
    if (letter == L'&') text += letter;
  }
  return text;
}

std::wstring shortName(const std::wstring& whole) {
  const std::wstring name = withoutCredentials(whole);
  const std::size_t last = name.find_last_not_of(L"\\/");
  if (last == std::wstring::npos) return name;
  const std::size_t slash = name.find_last_of(L"\\/", last);
  return name.substr(slash == std::wstring::npos ? 0 : slash + 1,
                     slash == std::wstring::npos ? last + 1 : last - slash);
}

}  // namespace form
