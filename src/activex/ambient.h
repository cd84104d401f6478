#pragma once

#include <windows.h>

#include <ocidl.h>

#include <string>

#include "activex/ComPtr.h"

namespace activex {

// What the host's site tells of the surroundings of a control. It is asked anew each time, since
// hosts do not announce every change. A site that is not there, has no such property, fails or
// tells something of another type is answered for as the comments say.
class Ambient {
 public:
  explicit Ambient(const ComPtr<IOleClientSite>& site) : site_(site.as<IDispatch>()) {}

  COLORREF backColour() const;       // else that of windows
  COLORREF foreColour() const;       // else that of windows' texts
  LOGFONTW font() const;             // else that of dialogs; its height in pixels of the screen
  bool userMode() const;             // a program runs, nobody designs a form; else true
  bool uiDead() const;               // nothing is to heed the user; else false
  LCID locale() const;               // else the user's
  std::wstring displayName() const;  // what the host calls the control; else what its class is

 private:
  // Whether there is a value of the type; it is the caller's to clear either way.
  bool read(DISPID id, VARTYPE type, VARIANT& value) const;
  bool flag(DISPID id, bool otherwise) const;
  COLORREF colour(DISPID id, int otherwise) const;

  ComPtr<IDispatch> site_;
};

}  // namespace activex
