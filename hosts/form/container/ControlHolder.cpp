#include "container/ControlHolder.h"

#include <ocidl.h>
#include <olectl.h>

#include "container/controlFactory.h"
#include "window/Metrics.h"

namespace form {

ControlHolder::ControlHolder(HWND frame, HWND stage, HostHooks& hooks) : stage_(stage) {
  *frame_.receive() = new ControlFrame(frame, hooks);
  *ambient_.receive() = new AmbientProperties;
  *site_.receive() = new ControlSite(stage, *frame_.get(), *ambient_.get());
  try {
    attach();
  } catch (...) {
    close();
    throw;
  }
}

ControlHolder::~ControlHolder() { close(); }

void ControlHolder::attach() {
  makeControl(identity_);
  const std::string what = "the control cannot be placed";
  host::require(identity_->QueryInterface(IID_IOleObject, ole_.receiveAny()), what);
  object_ = std::make_unique<host::Object>(identity_.get());

  DWORD status = 0;
  ole_->GetMiscStatus(DVASPECT_CONTENT, &status);
  const bool siteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
  if (siteFirst) host::require(ole_->SetClientSite(site_.get()), what);
  host::ComOwner<IPersistStreamInit> fresh;
  if (SUCCEEDED(identity_->QueryInterface(IID_IPersistStreamInit, fresh.receiveAny()))) {
    host::require(fresh->InitNew(), what);
  }
  if (!siteFirst) host::require(ole_->SetClientSite(site_.get()), what);
  ole_->SetHostNames(L"KelvaneHost", nullptr);

  RECT place = site_->place();
  SIZEL extent = himetricOf({place.right, place.bottom});
  ole_->SetExtent(DVASPECT_CONTENT, &extent);
  host::require(
      ole_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, stage_, &place), what);
  host::require(identity_->QueryInterface(IID_IOleInPlaceObject, inPlace_.receiveAny()), what);
}

void ControlHolder::close() {
  if (ole_) {
    ole_->Close(OLECLOSE_NOSAVE);
    ole_->SetClientSite(nullptr);
  }
  object_.reset();
  inPlace_.reset();
  ole_.reset();
  identity_.reset();
  if (site_) site_->detach();
  if (frame_) frame_->detach();
}

void ControlHolder::resize() {
  if (!inPlace_) return;
  const RECT place = site_->place();
  if (IsRectEmpty(&place)) return;
  SIZEL extent = himetricOf({place.right, place.bottom});
  ole_->SetExtent(DVASPECT_CONTENT, &extent);
  inPlace_->SetObjectRects(&place, &place);
}

void ControlHolder::focus() {
  RECT place = site_->place();
  ole_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site_.get(), 0, stage_, &place);
}

void ControlHolder::ambientChanged() {
  host::ComOwner<IOleControl> control;
  if (FAILED(identity_->QueryInterface(IID_IOleControl, control.receiveAny()))) return;
  control->OnAmbientPropertyChange(DISPID_UNKNOWN);  // any of them
}

void ControlHolder::frameActivated(bool active) {
  if (frame_->active() != nullptr) frame_->active()->OnFrameWindowActivate(active);
}

void ControlHolder::setDead(bool dead) {
  ambient_->setDead(dead);
  host::ComOwner<IOleControl> control;
  if (FAILED(identity_->QueryInterface(IID_IOleControl, control.receiveAny()))) return;
  control->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD);
}

bool ControlHolder::translate(MSG& message) {
  IOleInPlaceActiveObject* const active = frame_->active();
  if (active == nullptr || (message.hwnd != stage_ && !IsChild(stage_, message.hwnd))) {
    return false;
  }
  return active->TranslateAccelerator(&message) == S_OK;
}

}  // namespace form
