#include "container/ControlFrame.h"

namespace form {

void ControlFrame::detach() {
  window_ = nullptr;
  hooks_ = nullptr;
  active_.reset();
}

HRESULT STDMETHODCALLTYPE ControlFrame::QueryInterface(REFIID iid, void** place) {
  if (place == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IOleWindow ||
                     iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame;
  return answer<IOleInPlaceFrame>(known ? this : nullptr, place);
}

HRESULT STDMETHODCALLTYPE ControlFrame::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = window_;
  return window_ != nullptr ? S_OK : E_FAIL;
}

HRESULT STDMETHODCALLTYPE ControlFrame::SetBorderSpace(LPCBORDERWIDTHS widths) {
  return widths == nullptr ? S_OK : INPLACE_E_NOTOOLSPACE;
}

HRESULT STDMETHODCALLTYPE ControlFrame::SetActiveObject(IOleInPlaceActiveObject* object,
                                                        LPCOLESTR) {
  if (object != nullptr) object->AddRef();
  *active_.receive() = object;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ControlFrame::SetStatusText(LPCOLESTR text) {
  if (hooks_ != nullptr) hooks_->onControlStatus(text != nullptr ? text : L"");
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ControlFrame::EnableModeless(BOOL enable) {
  if (hooks_ != nullptr) hooks_->onControlModal(enable == FALSE);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ControlFrame::TranslateAccelerator(LPMSG message, WORD) {
  if (message == nullptr) return E_POINTER;
  return hooks_ != nullptr && hooks_->onHostKey(*message) ? S_OK : S_FALSE;
}

}  // namespace form
