#include "container/AmbientProperties.h"

#include <olectl.h>
#include <oleauto.h>

#include "window/Metrics.h"

namespace form {
namespace {

HRESULT giveFlag(VARIANT& value, bool flag) {
  V_VT(&value) = VT_BOOL;
  V_BOOL(&value) = flag ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

HRESULT giveNumber(VARIANT& value, LONG number) {
  V_VT(&value) = VT_I4;
  V_I4(&value) = number;
  return S_OK;
}

// A system colour, in the form that automation has for them.
HRESULT giveColour(VARIANT& value, int systemColour) {
  constexpr ULONG kSystemColour = 0x80000000;
  return giveNumber(value,
                    static_cast<LONG>(kSystemColour | static_cast<ULONG>(systemColour)));
}

HRESULT giveText(VARIANT& value, const wchar_t* text) {
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(text);
  return V_BSTR(&value) != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT giveFont(VARIANT& value) {
  constexpr LONGLONG kTenThousandths = 10000;
  LOGFONTW font = messageFont();
  FONTDESC wanted = {};
  wanted.cbSizeofstruct = sizeof wanted;
  wanted.lpstrName = font.lfFaceName;
  wanted.cySize.int64 = pointsOf(font) * kTenThousandths;
  wanted.sWeight = static_cast<SHORT>(font.lfWeight);
  wanted.sCharset = font.lfCharSet;
  wanted.fItalic = font.lfItalic;
  IDispatch* made = nullptr;
  const HRESULT result =
      OleCreateFontIndirect(&wanted, IID_IFontDisp, reinterpret_cast<void**>(&made));
  if (FAILED(result)) return result;
  V_VT(&value) = VT_DISPATCH;
  V_DISPATCH(&value) = made;
  return S_OK;
}

}  // namespace

HRESULT STDMETHODCALLTYPE AmbientProperties::QueryInterface(REFIID iid, void** place) {
  if (place == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  return answer<IDispatch>(known ? this : nullptr, place);
}

HRESULT STDMETHODCALLTYPE AmbientProperties::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE AmbientProperties::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE AmbientProperties::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID,
                                                           DISPID* ids) {
  if (ids == nullptr) return E_POINTER;
  for (UINT k = 0; k < count; ++k) ids[k] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;  // ambient properties are asked for by their numbers
}

HRESULT STDMETHODCALLTYPE AmbientProperties::Invoke(DISPID id, REFIID, LCID, WORD flags,
                                                    DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                                    UINT*) {
  if ((flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
  if (result == nullptr) return E_POINTER;
  VariantInit(result);
  return get(id, *result);
}

HRESULT AmbientProperties::get(DISPID id, VARIANT& value) const {
  switch (id) {
    case DISPID_AMBIENT_BACKCOLOR: return giveColour(value, COLOR_WINDOW);
    case DISPID_AMBIENT_FORECOLOR: return giveColour(value, COLOR_WINDOWTEXT);
    case DISPID_AMBIENT_FONT: return giveFont(value);
    case DISPID_AMBIENT_LOCALEID: return giveNumber(value, static_cast<LONG>(GetUserDefaultLCID()));
    case DISPID_AMBIENT_DISPLAYNAME: return giveText(value, L"KelvaneHost");
    case DISPID_AMBIENT_USERMODE: return giveFlag(value, true);
    case DISPID_AMBIENT_UIDEAD: return giveFlag(value, dead_);
    case DISPID_AMBIENT_SHOWGRABHANDLES: return giveFlag(value, false);
    case DISPID_AMBIENT_SHOWHATCHING: return giveFlag(value, false);
    case DISPID_AMBIENT_DISPLAYASDEFAULT: return giveFlag(value, false);
    case DISPID_AMBIENT_SUPPORTSMNEMONICS: return giveFlag(value, true);
    case DISPID_AMBIENT_AUTOCLIP: return giveFlag(value, true);
    default: return DISP_E_MEMBERNOTFOUND;
  }
}

}  // namespace form
