#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "window/Metrics.h"

namespace form {

// What the bar shows.
struct BarState {
  std::vector<std::wstring> items;
  int item = 0;          // counts from 1
  int step = 0, steps = 0;  // 0: none, and not known
  bool open = false, drawable = false, playing = false, ready = true;
};

// The row of buttons and boxes along the window's top; it breaks into more rows where there is no
// room. Its controls are children of the window and send their commands there.
class Bar {
 public:
  // How fast to play: the pause between two steps in milliseconds.
  static const std::vector<int>& pauses();
  static constexpr int kUsualSpeed = 2;

  Bar(HWND window, const Metrics& metrics);
  ~Bar();
  Bar(const Bar&) = delete;
  Bar& operator=(const Bar&) = delete;

  // Lays the controls out in a window of this width: the height that they take.
  int layOut(int width);
  // The least width that the bar is for.
  int leastWidth() const;
  void show(const BarState& state);

  int chosenItem() const;  // counts from 1; 0 for none
  bool itemListIsOpen() const;
  int chosenSpeed() const;  // an index into pauses
  void setSpeed(int index);
  std::wstring typedStep() const;
  void showStep(int step);
  HWND stepBox() const { return step_; }

 private:
  struct Part {
    HWND window;
    int width, height, lead;  // pixels; lead is the gap before it
  };
  using Group = std::vector<Part>;

  HWND add(const wchar_t* kind, const wchar_t* text, DWORD style, int id, int width, int height,
           int lead);
  void addButton(const wchar_t* text, int id);
  void addGlyph(const wchar_t* name, int id, int glyph);
  void addTip(HWND control, const wchar_t* text);
  int widthOf(const Group& group) const;

  HWND window_, tips_ = nullptr;
  const Metrics& metrics_;
  std::vector<Group> groups_;
  std::vector<HICON> icons_;
  HWND item_ = nullptr, step_ = nullptr, count_ = nullptr, speed_ = nullptr, play_ = nullptr;
  std::vector<std::wstring> items_;
  bool playing_ = false;
};

}  // namespace form
