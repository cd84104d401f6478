#pragma once

#include <windows.h>

#include <ole2.h>

#include <memory>

#include "ComOwner.h"
#include "Dispatch.h"
#include "container/ControlSite.h"

namespace form {

// A control in a window, from its making to its end.
class ControlHolder {
 public:
  // Makes the control and activates it; it fills the client area of stage. host::HostError when
  // that fails. The hooks must outlive the holder.
  ControlHolder(HWND frame, HWND stage, HostHooks& hooks);
  ~ControlHolder();
  ControlHolder(const ControlHolder&) = delete;
  ControlHolder& operator=(const ControlHolder&) = delete;

  host::Object& object() { return *object_; }
  // Fits the control into the stage again.
  void resize();
  // Gives the control the keyboard.
  void focus();
  // Colours, font or language have changed.
  void ambientChanged();
  void frameActivated(bool active);
  void setDead(bool dead);
  // Offers a key to the control. True when it took it.
  bool translate(MSG& message);

 private:
  void attach();
  void close();

  HWND stage_;
  host::ComOwner<ControlFrame> frame_;
  host::ComOwner<AmbientProperties> ambient_;
  host::ComOwner<ControlSite> site_;
  host::ComOwner<IUnknown> identity_;
  host::ComOwner<IOleObject> ole_;
  host::ComOwner<IOleInPlaceObject> inPlace_;
  std::unique_ptr<host::Object> object_;
};

}  // namespace form
