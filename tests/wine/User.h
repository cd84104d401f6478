#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "Picture.h"

namespace winetest {

// A user at the dialogs of this program's main thread: works from a thread of its own with real
// messages and keys, while the main thread is in the dialogs' modal loops. Every wait is bounded;
// one that fails throws.
class User {
 public:
  // At the dialogs of another program's thread; onMainThread does not reach there.
  explicit User(DWORD thread) : thread_(thread) {}

  // Does the script while call runs, which must return once the script's dialogs are closed.
  // What went wrong: empty when all went well. A stuck user closes every dialog that is up.
  static std::string during(const std::function<void()>& call,
                            const std::function<void(User&)>& script);

  // The dialog with this caption, once it is up and takes input.
  HWND dialog(const std::wstring& caption);
  // Waits for a condition; what says it in a failure.
  void until(const std::string& what, const std::function<bool()>& condition);
  void untilGone(HWND window);

  void click(HWND dialog, int control);
  // The mouse button on the middle of a control.
  void press(HWND control);
  // Puts the caret into an edit box, by the mouse, and types over what is there.
  void type(HWND edit, const std::wstring& text);
  // A key of the keyboard, where the focus is.
  enum Shift : unsigned { None = 0, WithShift = 1, WithControl = 2, WithAlt = 4 };
  void key(WORD code, unsigned shift = None);

  // In the system's open-file dialog.
  void chooseFile(const std::string& path);
  // In the system's colour chooser: mixes a colour and takes it, or cancels.
  void chooseColor(std::optional<COLORREF> colour);
  void mixColor(HWND chooser, COLORREF colour);

  // Has the main thread do something from within the modal loop, as the host's code might.
  void onMainThread(std::function<void()> action);

  HWND focus() const;
  // The dialog's window with all that is on it, once it is painted.
  host::Picture shoot(HWND dialog);

 private:
  void closeAll() const;

  DWORD thread_;
};

// A window's or control's text.
std::string textOf(HWND window);
inline std::string textOf(HWND dialog, int control) { return textOf(GetDlgItem(dialog, control)); }

}  // namespace winetest
