#pragma once

#include <cstdint>

namespace platform {

enum class WindowState { Normal, Minimised, Maximised };

// A dialog as its placement sees it; sizes and places in pixels.
class Form {
 public:
  virtual ~Form() = default;
  virtual platform::WindowState WindowState() const = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void MoveTo(int32_t left, int32_t top) = 0;
};

struct ScreenSize {
  double width = 0, height = 0;
};

// Moves a normal dialog to the middle of the screen: screen minus dialog, rounded, then
// halved as an integer. A minimised or maximised dialog is left alone.
void CenterForm(Form& form, ScreenSize screen);

}  // namespace platform
