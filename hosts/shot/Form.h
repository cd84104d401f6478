#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "BoxAnswerer.h"
#include "Dispatch.h"
#include "Picture.h"

namespace host {

// A form with one control on it that fills it, held by the system's own control container. No
// user is expected: message boxes are read, remembered and answered with OK.
class Form {
 public:
  // Shows the form with a client area of width x height pixels and the control active on it.
  // HostError when the control cannot be made or activated.
  Form(const std::wstring& progId, int width, int height);
  ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Object& control() { return *control_; }
  void resize(int width, int height);
  // Lets everything that waits in the queue happen.
  void pump();

  // The form's client area as it is on the screen; what does not fit there, as the control's
  // window prints it.
  Picture shoot() const;
  // The same size, drawn by the control into a bitmap.
  Picture oleDraw() const;

  HWND window() const { return window_; }
  BoxAnswerer& answerer() { return answerer_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void attach(const std::wstring& progId);
  void printControl(HDC dc) const;

  HWND window_ = nullptr;
  HWND site_ = nullptr;
  std::unique_ptr<Object> control_;
  BoxAnswerer answerer_;
};

// For a control that is on no form: gives it an extent of width x height pixels, and draws it into
// a bitmap of that size.
void setExtent(Object& control, int width, int height);
Picture drawWithoutForm(Object& control, int width, int height);

}  // namespace host
