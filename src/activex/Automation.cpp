#include "activex/Automation.h"

#include <string>
#include <string_view>

#include "activex/Instance.h"
#include "activex/MemberCall.h"
#include "activex/guard.h"
#include "activex/hostError.h"
#include "platform/gdi/wideText.h"

namespace activex {
namespace {

std::string textOf(BSTR text) {
  if (text == nullptr) return {};
  return platform::toUtf8(std::wstring_view(text, SysStringLen(text)));
}

HRESULT give(BSTR* place, const std::string& text) {
  const std::wstring wide = platform::toWide(text);
  *place = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  return *place != nullptr ? S_OK : E_OUTOFMEMORY;
}

void give(VARIANT* place, int16_t number) {
  V_VT(place) = VT_I2;
  V_I2(place) = number;
}

void give(VARIANT* place, int32_t number) {
  V_VT(place) = VT_I4;
  V_I4(place) = number;
}

VARIANT_BOOL flagOf(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// What every member has around it: the shared records to itself, if another thread has them. A
// run-time error becomes the host's.
template <class Member>
HRESULT inquiry(IUnknown& object, Member&& member) {
  return guarded(object, [&] {
    const StateLock state;
    if (!state.taken()) return busyError();
    try {
      return member();
    } catch (...) {
      return hostError();
    }
  });
}

// A member that works on the shared records, refused while another one does.
template <class Member>
HRESULT action(IUnknown& object, Instance& instance, Member&& member) {
  return inquiry(object, [&] {
    instance.body.applySize();
    const MemberCall call;
    if (!call.entered()) return busyError();
    member();
    return S_OK;
  });
}

// The same with a variant result, which is empty until the member has run.
template <class Member>
HRESULT action(IUnknown& object, Instance& instance, VARIANT* result, Member&& member) {
  if (result == nullptr) return E_POINTER;
  VariantInit(result);
  return action(object, instance, member);
}

}  // namespace

HRESULT STDMETHODCALLTYPE Automation::ShowOptions() {
  return action(object(), instance_, [&] { instance_.body.members().ShowOptions(); });
}

HRESULT STDMETHODCALLTYPE Automation::NcFile(BSTR filename, VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().NcFile(textOf(filename))); });
}

HRESULT STDMETHODCALLTYPE Automation::KewFile(BSTR filename, VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().KewFile(textOf(filename))); });
}

HRESULT STDMETHODCALLTYPE Automation::NewSection() {
  return action(object(), instance_, [&] { instance_.body.members().NewSection(); });
}

HRESULT STDMETHODCALLTYPE Automation::AddSection(float X, float y) {
  return action(object(), instance_, [&] { instance_.body.members().AddSection(X, y); });
}

HRESULT STDMETHODCALLTYPE Automation::AddColorKey(float vLow, float vHig, OLE_COLOR col) {
  return action(object(), instance_, [&] {
    instance_.body.members().AddColorKey(vLow, vHig, static_cast<int32_t>(col));
  });
}

HRESULT STDMETHODCALLTYPE Automation::NewColorKey() {
  return action(object(), instance_, [&] { instance_.body.members().NewColorKey(); });
}

HRESULT STDMETHODCALLTYPE Automation::EndSection(VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().EndSection()); });
}

HRESULT STDMETHODCALLTYPE Automation::SetVarByName(BSTR vName, VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().SetVarByName(textOf(vName))); });
}

HRESULT STDMETHODCALLTYPE Automation::SetVarByOrder(LONG Order, VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().SetVarByOrder(Order)); });
}

HRESULT STDMETHODCALLTYPE Automation::get_ErrorMessage(BSTR* text) {
  if (text == nullptr) return E_POINTER;
  *text = nullptr;
  return inquiry(object(), [&] { return give(text, instance_.body.members().ErrorMessage()); });
}

HRESULT STDMETHODCALLTYPE Automation::get_NumDrawAbleItems(LONG* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return inquiry(object(), [&] {
    *count = instance_.body.members().NumDrawAbleItems();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Automation::ItemName(LONG nOrder, BSTR* name) {
  if (name == nullptr) return E_POINTER;
  *name = nullptr;
  return inquiry(object(), [&] { return give(name, instance_.body.members().ItemName(nOrder)); });
}

HRESULT STDMETHODCALLTYPE Automation::get_DrawProfile(VARIANT_BOOL* profile) {
  if (profile == nullptr) return E_POINTER;
  *profile = VARIANT_FALSE;
  return inquiry(object(), [&] {
    *profile = flagOf(instance_.body.members().DrawProfile());
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Automation::put_DrawProfile(VARIANT_BOOL profile) {
  return action(object(), instance_,
                [&] { instance_.body.members().DrawProfile(profile != VARIANT_FALSE); });
}

HRESULT STDMETHODCALLTYPE Automation::get_DrawVerticalSection(VARIANT_BOOL* section) {
  if (section == nullptr) return E_POINTER;
  *section = VARIANT_FALSE;
  return inquiry(object(), [&] {
    *section = flagOf(instance_.body.members().DrawVerticalSection());
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Automation::put_DrawVerticalSection(VARIANT_BOOL section) {
  return action(object(), instance_,
                [&] { instance_.body.members().DrawVerticalSection(section != VARIANT_FALSE); });
}

HRESULT STDMETHODCALLTYPE Automation::Draw(VARIANT* result) {
  return action(object(), instance_, result, [&] { instance_.body.members().Draw(); });
}

HRESULT STDMETHODCALLTYPE Automation::SetCurrentTime(LONG lTime) {
  return action(object(), instance_, [&] { instance_.body.members().SetCurrentTime(lTime); });
}

HRESULT STDMETHODCALLTYPE Automation::AdvanceTime(LONG nt, VARIANT* result) {
  return action(object(), instance_, result,
                [&] { give(result, instance_.body.members().AdvanceTime(nt)); });
}

HRESULT STDMETHODCALLTYPE Automation::ReDraw(VARIANT* result) {
  return action(object(), instance_, result, [&] { instance_.body.members().ReDraw(); });
}

HRESULT STDMETHODCALLTYPE Automation::get_UseColorKey(VARIANT_BOOL* use) {
  if (use == nullptr) return E_POINTER;
  *use = VARIANT_FALSE;
  return inquiry(object(), [&] {
    *use = flagOf(instance_.body.members().UseColorKey());
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE Automation::put_UseColorKey(VARIANT_BOOL use) {
  return action(object(), instance_,
                [&] { instance_.body.members().UseColorKey(use != VARIANT_FALSE); });
}

HRESULT STDMETHODCALLTYPE Automation::InitColorKey() {
  return action(object(), instance_, [&] { instance_.body.members().InitColorKey(); });
}

}  // namespace activex
