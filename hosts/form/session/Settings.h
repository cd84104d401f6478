#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "model/RecentList.h"

namespace form {

// What the program remembers of its user from one run to the next, in the user's part of the
// registry. What cannot be read is as if it had never been written; what cannot be written is
// forgotten.
class Settings {
 public:
  RecentList recent() const;
  void setRecent(const RecentList& list) const;
  // The path that was set last, for whatever data set.
  Path lastPath() const;
  void setLastPath(const Path& path) const;
  std::optional<int> speed() const;
  void setSpeed(int index) const;
  // Where the window was, when any of it still lies on a screen.
  std::optional<WINDOWPLACEMENT> window() const;
  void setWindow(const WINDOWPLACEMENT& placement) const;

 private:
  static std::wstring text(const std::wstring& name);
  static void setText(const std::wstring& name, const std::wstring& text);
};

}  // namespace form
