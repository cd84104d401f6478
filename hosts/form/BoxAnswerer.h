#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace host {

struct SeenBox {
  std::wstring caption, text;
  HWND owner = nullptr;
};

// While it lives, message boxes of this thread are read, remembered and answered with OK. One at a
// time may live in a thread.
class BoxAnswerer {
 public:
  BoxAnswerer();
  ~BoxAnswerer();
  BoxAnswerer(const BoxAnswerer&) = delete;
  BoxAnswerer& operator=(const BoxAnswerer&) = delete;

  const std::vector<SeenBox>& boxes() const { return boxes_; }

 private:
  static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD);
  static BOOL CALLBACK answer(HWND window, LPARAM self);

  UINT_PTR timer_;
  std::vector<SeenBox> boxes_;
};

}  // namespace host
