#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace host {

struct SeenBox {
  std::wstring caption, text;
  HWND owner = nullptr;
};

// While it lives, message boxes of this thread are read, remembered and answered with OK. Of
// several in a thread the newest does it.
class BoxAnswerer {
 public:
  BoxAnswerer();
  ~BoxAnswerer();
  BoxAnswerer(const BoxAnswerer&) = delete;
  BoxAnswerer& operator=(const BoxAnswerer&) = delete;

  const std::vector<SeenBox>& boxes() const { return boxes_; }
  // Something to do while a box is up, before it is answered.
  void meanwhile(std::function<void()> action) { meanwhile_ = std::move(action); }

 private:
  static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD);
  static BOOL CALLBACK answer(HWND window, LPARAM self);

  UINT_PTR timer_;
  BoxAnswerer* previous_;
  std::vector<SeenBox> boxes_;
  std::function<void()> meanwhile_;
};

}  // namespace host
