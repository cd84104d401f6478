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

STDAPI DllRegisterServer() { return activex::guarded(activex::registerControl); }

STDAPI DllUnregisterServer() { return activex::guarded(activex::unregisterControl); }
