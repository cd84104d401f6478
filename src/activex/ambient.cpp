#include "activex/ambient.h"

#include <olectl.h>

#include "activex/identity.h"

namespace activex {
namespace {

class Variant {
 public:
  Variant() { VariantInit(&value); }
  ~Variant() { VariantClear(&value); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  VARIANT value;
};

// Nothing is converted from these, though the system would make a number of them.
bool isNothing(VARTYPE type) { return type == VT_EMPTY || type == VT_NULL || type == VT_ERROR; }

bool fontOf(const VARIANT& value, LOGFONTW& description) {
  const VARTYPE type = V_VT(&value);
  if (type != VT_DISPATCH && type != VT_UNKNOWN) return false;
  const auto font = ComPtr<IUnknown>(V_UNKNOWN(&value)).as<IFont>();
  HFONT handle = nullptr;
  return font && SUCCEEDED(font->get_hFont(&handle)) &&
         GetObjectW(handle, sizeof description, &description) != 0;
}

}  // namespace

bool Ambient::read(DISPID id, VARTYPE type, VARIANT& value) const {
  if (!site_) return false;
  DISPPARAMS none = {};
  EXCEPINFO exception = {};
  UINT argument = 0;
  Variant told;
  const HRESULT result = site_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                       &none, &told.value, &exception, &argument);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  if (FAILED(result)) return false;
  Variant plain;
  if (FAILED(VariantCopyInd(&plain.value, &told.value)) || isNothing(V_VT(&plain.value))) {
    return false;
  }
  if (type == VT_EMPTY) return SUCCEEDED(VariantCopy(&value, &plain.value));  // as it is
  return SUCCEEDED(
      VariantChangeTypeEx(&value, &plain.value, LOCALE_INVARIANT, VARIANT_NOVALUEPROP, type));
}

bool Ambient::flag(DISPID id, bool otherwise) const {
  Variant told;
  return read(id, VT_BOOL, told.value) ? V_BOOL(&told.value) != VARIANT_FALSE : otherwise;
}

COLORREF Ambient::colour(DISPID id, int otherwise) const {
  Variant told;
  COLORREF colour = 0;
  // Signed or not, the bits are the same.
  const bool known = read(id, VT_I4, told.value) || read(id, VT_UI4, told.value);
  if (known && SUCCEEDED(OleTranslateColor(V_UI4(&told.value), nullptr, &colour))) return colour;
  return GetSysColor(otherwise);
}

COLORREF Ambient::backColour() const { return colour(DISPID_AMBIENT_BACKCOLOR, COLOR_WINDOW); }
COLORREF Ambient::foreColour() const { return colour(DISPID_AMBIENT_FORECOLOR, COLOR_WINDOWTEXT); }

LOGFONTW Ambient::font() const {
  Variant told;
  LOGFONTW description = {};
  if (read(DISPID_AMBIENT_FONT, VT_EMPTY, told.value) && fontOf(told.value, description)) {
    return description;
  }
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
  return description;
}

bool Ambient::userMode() const { return flag(DISPID_AMBIENT_USERMODE, true); }
bool Ambient::uiDead() const { return flag(DISPID_AMBIENT_UIDEAD, false); }

LCID Ambient::locale() const {
  Variant told;
  return read(DISPID_AMBIENT_LOCALEID, VT_I4, told.value) ? V_UI4(&told.value)
                                                          : GetUserDefaultLCID();
}

std::wstring Ambient::displayName() const {
  Variant told;
  if (!read(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, told.value)) return kUserType;
  const UINT length = SysStringLen(V_BSTR(&told.value));
  return length > 0 ? std::wstring(V_BSTR(&told.value), length) : kUserType;
}

}  // namespace activex
