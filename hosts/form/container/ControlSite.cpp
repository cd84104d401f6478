#include "container/ControlSite.h"

#include "window/Metrics.h"

namespace form {

ControlSite::ControlSite(HWND stage, ControlFrame& frame, AmbientProperties& ambient)
    : stage_(stage) {
  frame.AddRef();
  *frame_.receive() = &frame;
  ambient.AddRef();
  *ambient_.receive() = &ambient;
}

void ControlSite::detach() {
  stage_ = nullptr;
  frame_.reset();
}

RECT ControlSite::place() const {
  RECT area = {};
  GetClientRect(stage_, &area);
  return area;
}

HRESULT STDMETHODCALLTYPE ControlSite::QueryInterface(REFIID iid, void** place) {
  if (place == nullptr) return E_POINTER;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
    return answer<IOleClientSite>(this, place);
  }
  if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) {
    return answer<IOleInPlaceSite>(this, place);
  }
  if (iid == IID_IOleControlSite) return answer<IOleControlSite>(this, place);
  if (iid == IID_IDispatch) return ambient_->QueryInterface(iid, place);
  return answer<IOleClientSite>(nullptr, place);
}

HRESULT STDMETHODCALLTYPE ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE ControlSite::GetContainer(IOleContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT STDMETHODCALLTYPE ControlSite::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = stage_;
  return stage_ != nullptr ? S_OK : E_FAIL;
}

HRESULT STDMETHODCALLTYPE ControlSite::CanInPlaceActivate() {
  return stage_ != nullptr ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE ControlSite::GetWindowContext(IOleInPlaceFrame** frame,
                                                        IOleInPlaceUIWindow** document,
                                                        LPRECT place, LPRECT clip,
                                                        LPOLEINPLACEFRAMEINFO info) {
  if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr ||
      info == nullptr) {
    return E_POINTER;
  }
  *frame = nullptr;
  *document = nullptr;  // the frame is the document's window, too
  if (!frame_) return E_FAIL;
  frame_->AddRef();
  *frame = frame_.get();
  *place = *clip = this->place();
  info->fMDIApp = FALSE;
  frame_->GetWindow(&info->hwndFrame);
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ControlSite::GetExtendedControl(IDispatch** extended) {
  if (extended == nullptr) return E_POINTER;
  *extended = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE ControlSite::TransformCoords(POINTL* himetric, POINTF* container,
                                                       DWORD flags) {
  if (himetric == nullptr || container == nullptr) return E_POINTER;
  const SIZE inch = pixelsPerInch();
  if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
    container->x = static_cast<float>(MulDiv(himetric->x, inch.cx, kHimetricPerInch));
    container->y = static_cast<float>(MulDiv(himetric->y, inch.cy, kHimetricPerInch));
    return S_OK;
  }
  if ((flags & XFORMCOORDS_CONTAINERTOHIMETRIC) == 0) return E_INVALIDARG;
  himetric->x = MulDiv(static_cast<int>(container->x), kHimetricPerInch, inch.cx);
  himetric->y = MulDiv(static_cast<int>(container->y), kHimetricPerInch, inch.cy);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ControlSite::TranslateAccelerator(LPMSG message, DWORD) {
  return frame_ ? frame_->TranslateAccelerator(message, 0) : S_FALSE;
}

}  // namespace form
