#include "activex/Activation.h"

#include <ocidl.h>

#include "activex/Instance.h"
#include "activex/ambient.h"
#include "activex/identity.h"
#include "activex/placeholder.h"

namespace activex {

Activation::Activation(IUnknown& object, Instance& instance)
    : object_(object), instance_(instance), window_(object, *this) {}

HRESULT Activation::activate(bool ui) {
  if (!instance_.clientSite) return E_UNEXPECTED;
  if (window_.lost()) deactivate();  // so that there is a new one
  if (!active()) {
    const auto site = instance_.clientSite.as<IOleInPlaceSite>();
    if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;
    const HRESULT entered = enterSite(site);
    if (FAILED(entered)) return entered;
  }
  if (active()) ShowWindow(window(), SW_SHOW);
  if (instance_.clientSite) instance_.clientSite->ShowObject();
  return ui ? activateUi() : S_OK;
}

HRESULT Activation::enterSite(const ComPtr<IOleInPlaceSite>& site) {
  HRESULT result = site->OnInPlaceActivate();
  if (FAILED(result)) return result;
  site_ = site;
  HWND parent = nullptr;
  RECT place = {}, clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  result = site->GetWindow(&parent);
  if (SUCCEEDED(result)) {
    result = site->GetWindowContext(frame_.receive(), document_.receive(), &place, &clip, &info);
  }
  if (!active()) result = E_FAIL;  // the host took the control down while it was asked
  if (SUCCEEDED(result) && !window_.create(parent, place)) result = E_FAIL;
  if (FAILED(result)) {
    deactivate();
    return result;
  }
  setRects(place, clip);
  return S_OK;
}

HRESULT Activation::activateUi() {
  if (!active()) return E_FAIL;  // the host took the control down while it was told of it
  if (!uiActive_) {
    const HRESULT allowed = site_->OnUIActivate();
    if (FAILED(allowed)) return allowed;
    uiActive_ = true;
    const auto self = ComPtr<IUnknown>(&object_).as<IOleInPlaceActiveObject>();
    if (frame_) frame_->SetActiveObject(self.get(), kUserType);
    if (document_) document_->SetActiveObject(self.get(), kUserType);
    // No tool bars of ours; the host keeps its own.
    if (frame_) frame_->SetBorderSpace(nullptr);
    if (document_) document_->SetBorderSpace(nullptr);
  }
  if (window() != nullptr) SetFocus(window());
  return S_OK;
}

void Activation::deactivateUi() {
  if (!uiActive_) return;
  uiActive_ = false;
  if (document_) document_->SetActiveObject(nullptr, nullptr);
  if (frame_) frame_->SetActiveObject(nullptr, nullptr);
  if (site_) site_->OnUIDeactivate(FALSE);
}

void Activation::hide() {
  deactivateUi();
  if (window() != nullptr) ShowWindow(window(), SW_HIDE);
}

void Activation::deactivate() {
  deactivateUi();
  const ComPtr<IOleInPlaceSite> site = site_;
  site_.reset();
  window_.destroy();
  frame_.reset();
  document_.reset();
  if (site) site->OnInPlaceDeactivate();
}

void Activation::setRects(const RECT& place, const RECT& clip) {
  instance_.takeSize(place.right - place.left, place.bottom - place.top);
  window_.place(place, clip);
}

HWND Activation::hostWindow() const {
  if (window() != nullptr) return window();
  HWND host = nullptr;
  if (const auto site = instance_.clientSite.as<IOleWindow>()) site->GetWindow(&host);
  return host;
}

HWND Activation::topWindow() const {
  const HWND host = hostWindow();
  return host != nullptr ? GetAncestor(host, GA_ROOT) : nullptr;
}

void Activation::onPaint(HDC dc, const RECT& part) {
  if (instance_.showsPlaceholder()) {
    RECT all = {};
    GetClientRect(window(), &all);
    drawPlaceholder(Ambient(instance_.clientSite), dc, all, all.bottom);
    return;
  }
  // What the picture does not reach, when there was no memory for it, is paper as well.
  if (const auto& picture = instance_.body.visible();
      part.right > picture.width() || part.bottom > picture.height()) {
    FillRect(dc, &part, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  }
  instance_.body.visible().copyTo(dc, part);
}

void Activation::onSize(int width, int height) { instance_.takeSize(width, height); }

void Activation::onMouseDown() {
  if (!uiActive_ && !Ambient(instance_.clientSite).uiDead()) activateUi();
}

void Activation::onFocus(bool got) {
  if (const auto site = instance_.clientSite.as<IOleControlSite>()) site->OnFocus(got);
}

}  // namespace activex
