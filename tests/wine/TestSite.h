#pragma once

#include <windows.h>

#include <ocidl.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Dispatch.h"

namespace winetest {

// A host's site and frame in one, which do nothing but remember what they were told, in order. It
// lives as long as its test, whatever references are left.
class TestSite final : public IOleClientSite,
                       public IOleInPlaceSite,
                       public IOleInPlaceFrame,
                       public IOleControlSite,
                       public IDispatch {
 public:
  // The control gets its window as a child of parent; without one it cannot be activated.
  explicit TestSite(HWND parent = nullptr) : parent_(parent) {}
  virtual ~TestSite() = default;

  // What the host does when it is told something; every call comes here first, by its name.
  std::function<void(std::string_view)> meanwhile;
  RECT place = {0, 0, 200, 150}, clip = {0, 0, 2000, 2000};  // in pixels of the parent
  bool mayActivate = true;
  // The ambient properties, asked for by IDispatch; a site without has none.
  bool hasAmbients = false;
  std::map<DISPID, host::Value> ambients;
  HRESULT ambientAnswer = S_OK;  // a failure: all of them fail

  ULONG references = 1;
  std::vector<std::string> calls;
  int modelessPauses = 0;      // not ended
  int mostModelessPauses = 0;  // at once

  int count(std::string_view call) const {
    return static_cast<int>(std::count(calls.begin(), calls.end(), call));
  }
  // How many controls are active in place.
  int stays() const { return count("OnInPlaceActivate") - count("OnInPlaceDeactivate"); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite) {
      *object = static_cast<IOleClientSite*>(this);
    } else if (parent_ != nullptr && (id == IID_IOleWindow || id == IID_IOleInPlaceSite)) {
      *object = static_cast<IOleInPlaceSite*>(this);
    } else if (id == IID_IOleControlSite) {
      *object = static_cast<IOleControlSite*>(this);
    } else if (id == IID_IDispatch && hasAmbients) {
      *object = static_cast<IDispatch*>(this);
    }
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return told("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override {
    *moniker = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override {
    *container = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return told("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return told("OnShowWindow"); }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow, IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = parent_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return mayActivate ? S_OK : S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return told("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return told("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT position,
                                             LPRECT clipping, LPOLEINPLACEFRAMEINFO) override {
    AddRef();
    *frame = this;
    *document = nullptr;
    *position = place;
    *clipping = clip;
    return told("GetWindowContext");
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return told("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return told("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return told("DiscardUndoState"); }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return told("DeactivateAndUndo"); }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return told("OnPosRectChange"); }

  // IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return INPLACE_E_NOTOOLSPACE;
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override {
    return told("SetBorderSpace");
  }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
    return told(object != nullptr ? "SetActiveObject" : "SetActiveObject none");
  }
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override {
    modelessPauses += enable ? -1 : 1;
    mostModelessPauses = std::max(mostModelessPauses, modelessPauses);
    return told("EnableModeless");
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IOleControlSite
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return told("OnControlInfoChanged"); }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return told("LockInPlaceActive"); }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) override {
    *control = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return told("OnFocus"); }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return told("ShowPropertyFrame"); }

  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    told("ambient property");
    if (FAILED(ambientAnswer)) return ambientAnswer;
    if (flags != DISPATCH_PROPERTYGET || parameters->cArgs != 0) return E_INVALIDARG;
    const auto found = ambients.find(id);
    if (found == ambients.end()) return DISP_E_MEMBERNOTFOUND;
    return VariantCopy(result, &found->second.variant());
  }

 private:
  HRESULT told(const char* call) {
    calls.emplace_back(call);
    if (meanwhile) meanwhile(call);
    return S_OK;
  }

  const HWND parent_;
};

// A window for a test's control, which goes with the test.
class TestWindow {
 public:
  TestWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 640, 480, nullptr,
                                nullptr, nullptr, nullptr)) {}
  ~TestWindow() { DestroyWindow(window_); }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;
  HWND handle() const { return window_; }

 private:
  const HWND window_;
};

}  // namespace winetest
