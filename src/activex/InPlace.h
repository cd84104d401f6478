#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/Role.h"

namespace activex {

struct Instance;

// What the host's site asks of the active control.
class InPlaceObject final : public Role<IOleInPlaceObject> {
 public:
  InPlaceObject(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override;
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT place, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;

 private:
  Instance& instance_;
};

// What the host's frame asks of the control that has the user's attention.
class InPlaceActiveObject final : public Role<IOleInPlaceActiveObject> {
 public:
  InPlaceActiveObject(IUnknown& object, Instance& instance)
      : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override;
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override;
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override;

 private:
  Instance& instance_;
};

}  // namespace activex
