#include "activex/registration.h"

#include <olectl.h>

#include <string>
#include <vector>

#include "activex/guids.h"
#include "activex/identity.h"
#include "activex/module.h"
#include "activex/typeLibrary.h"

namespace activex {
namespace {

// The category by which form designers find controls.
constexpr wchar_t kControlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";

struct Value {
  std::wstring key;
  const wchar_t* name;  // null: the key's own value
  std::wstring text;
};

std::wstring textOf(REFGUID id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring classKey() { return L"CLSID\\" + textOf(CLSID_KelvaneCtl); }

std::vector<Value> valuesOf(const std::wstring& path) {
  const std::wstring id = textOf(CLSID_KelvaneCtl), key = classKey();
  return {
      {kVersionedProgId, nullptr, kUserType},
      {std::wstring(kVersionedProgId) + L"\\CLSID", nullptr, id},
      {kProgId, nullptr, kUserType},
      {std::wstring(kProgId) + L"\\CLSID", nullptr, id},
      {std::wstring(kProgId) + L"\\CurVer", nullptr, kVersionedProgId},
      {key, nullptr, kUserType},
      {key + L"\\ProgID", nullptr, kVersionedProgId},
      {key + L"\\VersionIndependentProgID", nullptr, kProgId},
      {key + L"\\InprocServer32", nullptr, path},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\TypeLib", nullptr, textOf(LIBID_Kelvane)},
      {key + L"\\Version", nullptr, kVersion},
      {key + L"\\MiscStatus", nullptr, L"0"},
      {key + L"\\MiscStatus\\1", nullptr, std::to_wstring(kMiscStatus)},
      {key + L"\\Control", nullptr, L""},
      {key + L"\\Programmable", nullptr, L""},
      {key + L"\\Implemented Categories\\" + kControlCategory, nullptr, L""},
  };
}

bool write(const Value& value) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, value.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                      &key, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
  const LSTATUS written =
      RegSetValueExW(key, value.name, 0, REG_SZ,
                     reinterpret_cast<const BYTE*>(value.text.c_str()), bytes);
  return RegCloseKey(key) == ERROR_SUCCESS && written == ERROR_SUCCESS;
}

bool exists(const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

bool removeTree(const std::wstring& key) {
  const LSTATUS removed = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  return removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND;
}

HRESULT writeClass(const std::wstring& path) {
  for (const Value& value : valuesOf(path)) {
    if (!write(value)) return SELFREG_E_CLASS;
  }
  return S_OK;
}

HRESULT writeTypeLibrary(const std::wstring& path) {
  ComPtr<ITypeLib> library;
  std::wstring name = path;  // the call takes it as writable, and only reads it
  const std::wstring folder = path.substr(0, path.find_last_of(L"\\/"));
  std::wstring help = folder;
  const bool written = SUCCEEDED(loadTypeLibrary(library)) &&
                       SUCCEEDED(RegisterTypeLib(library.get(), name.data(), help.data()));
  return written ? S_OK : SELFREG_E_TYPELIB;
}

HRESULT removeTypeLibrary() {
  ComPtr<ITypeLib> library;
  TLIBATTR* attributes = nullptr;
  if (FAILED(loadTypeLibrary(library)) || FAILED(library->GetLibAttr(&attributes))) {
    return SELFREG_E_TYPELIB;
  }
  const HRESULT removed =
      UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum,
                        attributes->lcid, attributes->syskind);
  library->ReleaseTLibAttr(attributes);
  // Refused, in several ways, also when it is not there.
  return SUCCEEDED(removed) || !exists(L"TypeLib\\" + textOf(LIBID_Kelvane)) ? S_OK
                                                                              : SELFREG_E_TYPELIB;
}

}  // namespace

HRESULT registerControl() {
  const std::wstring path = modulePath();
  if (path.empty()) return SELFREG_E_CLASS;
  HRESULT result = writeClass(path);
  if (SUCCEEDED(result)) result = writeTypeLibrary(path);
  if (FAILED(result)) unregisterControl();
  return result;
}

HRESULT unregisterControl() {
  const HRESULT library = removeTypeLibrary();
  // One that cannot be removed does not keep the others.
  bool removed = removeTree(kProgId);
  removed = removeTree(kVersionedProgId) && removed;
  removed = removeTree(classKey()) && removed;
  return removed ? library : SELFREG_E_CLASS;
}

}  // namespace activex
