// The library's entry points.
#include <windows.h>

#include <olectl.h>

#include "activex/ClassFactory.h"
#include "activex/guard.h"
#include "activex/guids.h"
#include "activex/module.h"
#include "activex/registration.h"

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, LPVOID* answer) {
  if (answer == nullptr) return E_POINTER;
  *answer = nullptr;
  return id == CLSID_KelvaneCtl ? activex::ClassFactory::create(iid, answer)
                                : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return activex::ModuleReference::any() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return activex::guarded([] { return activex::registerControl(activex::Scope::Machine); });
}

STDAPI DllUnregisterServer() {
  return activex::guarded([] { return activex::unregisterControl(activex::Scope::Machine); });
}

// What follows regsvr32's /i: comes as words: "user" is for the current user alone, none is for
// everybody. Any other is refused, so that a slip of the pen does not register for everybody.
STDAPI DllInstall(BOOL install, PCWSTR words) {
  const bool none = words == nullptr || *words == L'\0';
  if (!none && CompareStringOrdinal(words, -1, L"user", -1, TRUE) != CSTR_EQUAL) {
    return E_INVALIDARG;
  }
  const auto scope = none ? activex::Scope::Machine : activex::Scope::User;
  return activex::guarded([install, scope] {
    return install ? activex::registerControl(scope) : activex::unregisterControl(scope);
  });
}
