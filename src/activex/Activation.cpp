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
  if (const auto client = instance_.clientSite) client->ShowObject();
  return ui ? activateUi() : S_OK;
}

// A host may take the control down inside any call of its own, and even activate it anew: what is
// called is held meanwhile, and what is held to be true is looked at again.
HRESULT Activation::enterSite(const ComPtr<IOleInPlaceSite>& site) {
  site_ = site;
  HRESULT result = site->OnInPlaceActivate();
  if (FAILED(result)) {
    site_.reset();
    return result;
  }
  if (!active()) return E_FAIL;
  if (window() != nullptr) return S_OK;
  HWND parent = nullptr;
  RECT place = {}, clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  result = site->GetWindow(&parent);
  if (SUCCEEDED(result)) {
    result = site->GetWindowContext(frame.receive(), document.receive(), &place, &clip, &info);
  }
  if (window() != nullptr) return S_OK;
  if (!active()) return E_FAIL;
  frame_ = frame;
  document_ = document;
  if (SUCCEEDED(result) && !window_.create(parent, place)) result = E_FAIL;
  if (FAILED(result)) {
    deactivate();
    return result;
  }
  setRects(place, clip);
  return S_OK;
}

HRESULT Activation::activateUi() {
  if (!active()) return E_FAIL;
  if (!uiActive_) {
    const auto site = site_;
    const auto frame = frame_;
    const auto document = document_;
    uiActive_ = true;
    if (const HRESULT allowed = site->OnUIActivate(); FAILED(allowed)) {
      uiActive_ = false;
      return allowed;
    }
    const auto self = ComPtr<IUnknown>(&object_).as<IOleInPlaceActiveObject>();
    if (frame && uiActive_) frame->SetActiveObject(self.get(), kUserType);
    if (document && uiActive_) document->SetActiveObject(self.get(), kUserType);
    // No tool bars of ours; the host keeps its own.
    if (frame && uiActive_) frame->SetBorderSpace(nullptr);
    if (document && uiActive_) document->SetBorderSpace(nullptr);
    if (!uiActive_) return E_FAIL;
  }
  if (window() != nullptr) SetFocus(window());
  return S_OK;
}

void Activation::deactivateUi() {
  if (!uiActive_) return;
  uiActive_ = false;
  const auto site = site_;
  const auto frame = frame_;
  if (const auto document = document_) document->SetActiveObject(nullptr, nullptr);
  if (frame) frame->SetActiveObject(nullptr, nullptr);
  if (site) site->OnUIDeactivate(FALSE);
}

void Activation::hide() {
  deactivateUi();
  if (window() != nullptr) ShowWindow(window(), SW_HIDE);
}

void Activation::deactivate() {
  deactivateUi();
  if (uiActive_) deactivateUi();  // the host gave the attention back meanwhile
  const ComPtr<IOleInPlaceSite> site = site_;
  site_.reset();
  frame_.reset();
  document_.reset();
  // Last: when the window goes, the host may activate the control anew.
  window_.destroy();
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
