#include "activex/Automation.h"

#include "activex/guard.h"
#include "activex/typeLibrary.h"

namespace activex {
namespace {

// Whether a function answers to a call with these flags.
bool answers(const FUNCDESC& function, DISPID id, WORD flags) {
  return function.memid == id && (static_cast<WORD>(function.invkind) & flags) != 0;
}

// How many arguments a caller may give; the result is described as a parameter too.
UINT argumentCount(const FUNCDESC& function) {
  UINT count = 0;
  for (SHORT i = 0; i < function.cParams; ++i) {
    if ((function.lprgelemdescParam[i].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0) ++count;
  }
  return count;
}

// A call with more arguments than the member takes is refused. The type description's own
// Invoke drops the surplus on some systems.
HRESULT checkArgumentCount(ITypeInfo& info, DISPID id, WORD flags, UINT given) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes))) return S_OK;
  const UINT functions = attributes->cFuncs;
  info.ReleaseTypeAttr(attributes);
  bool known = false, fits = false;
  for (UINT i = 0; i < functions; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(info.GetFuncDesc(i, &function))) continue;
    if (answers(*function, id, flags)) {
      known = true;
      fits = fits || given <= argumentCount(*function);
    }
    info.ReleaseFuncDesc(function);
  }
  return known && !fits ? DISP_E_BADPARAMCOUNT : S_OK;
}

}  // namespace

HRESULT Automation::typeInfo(ITypeInfo*& info) {
  if (!typeInfo_) {
    const HRESULT loaded = loadTypeInfo(IID__KelvaneCtl, typeInfo_);
    if (FAILED(loaded)) return loaded;
  }
  info = typeInfo_.get();
  return S_OK;
}

HRESULT STDMETHODCALLTYPE Automation::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE Automation::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return guarded(object(), [&] {
    ITypeInfo* own = nullptr;
    const HRESULT loaded = typeInfo(own);
    if (SUCCEEDED(loaded)) *info = ComPtr<ITypeInfo>(own).detach();
    return loaded;
  });
}

HRESULT STDMETHODCALLTYPE Automation::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                                    DISPID* ids) {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return guarded(object(), [&] {
    ITypeInfo* info = nullptr;
    const HRESULT loaded = typeInfo(info);
    return FAILED(loaded) ? loaded : info->GetIDsOfNames(names, count, ids);
  });
}

HRESULT STDMETHODCALLTYPE Automation::Invoke(DISPID id, REFIID iid, LCID, WORD flags,
                                             DISPPARAMS* parameters, VARIANT* result,
                                             EXCEPINFO* exception, UINT* argument) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (parameters == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    ITypeInfo* info = nullptr;
    HRESULT outcome = typeInfo(info);
    if (FAILED(outcome)) return outcome;
    outcome = checkArgumentCount(*info, id, flags, parameters->cArgs);
    if (FAILED(outcome)) return outcome;
    // Error information that an earlier call left must not be taken for this one's.
    SetErrorInfo(0, nullptr);
    return info->Invoke(static_cast<_KelvaneCtl*>(this), id, flags, parameters, result, exception,
                        argument);
  });
}

}  // namespace activex
