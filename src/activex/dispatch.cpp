#include "activex/Automation.h"

#include <algorithm>

#include "activex/Call.h"
#include "activex/guard.h"
#include "activex/hostError.h"
#include "activex/typeLibrary.h"

// Calls by name and number. Everything between a host's arguments and the member is done here and
// not left to the type description's own Invoke, of which systems have different ones: they do
// not agree on surplus arguments, on colours above the largest positive number, on names of the
// inherited functions, nor on languages.
namespace activex {

HRESULT Automation::typeInfo(ITypeInfo*& info) {
  if (!typeInfo_) {
    const HRESULT loaded = loadTypeInfo(IID__KelvaneCtl, typeInfo_);
    if (FAILED(loaded)) return loaded;
  }
  info = typeInfo_.get();
  return S_OK;
}

HRESULT Automation::readTable() {
  if (!table_.empty()) return S_OK;
  ITypeInfo* info = nullptr;
  const HRESULT loaded = typeInfo(info);
  return FAILED(loaded) ? loaded : table_.read(*info);
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

// The first name is a member's, the others are its parameters'.
HRESULT STDMETHODCALLTYPE Automation::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                                    DISPID* ids) {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (count == 0) return E_INVALIDARG;
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  if (std::find(names, names + count, nullptr) != names + count) return E_INVALIDARG;
  return guarded(object(), [&]() -> HRESULT {
    const HRESULT read = readTable();
    if (FAILED(read)) return read;
    const Member* const member = table_.find(names[0]);
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT result = S_OK;
    const auto& parameters = member->parameters;
    for (UINT i = 1; i < count; ++i) {
      const auto found =
          std::find_if(parameters.begin(), parameters.end(), [&](const auto& parameter) {
            return sameName(parameter.name, names[i]);
          });
      if (found == parameters.end()) {
        result = DISP_E_UNKNOWNNAME;
      } else {
        ids[i] = static_cast<DISPID>(found - parameters.begin());
      }
    }
    return result;
  });
}

HRESULT STDMETHODCALLTYPE Automation::Invoke(DISPID id, REFIID iid, LCID language, WORD flags,
                                             DISPPARAMS* parameters, VARIANT* result,
                                             EXCEPINFO* exception, UINT* argument) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (parameters == nullptr) return E_POINTER;
  OwnedVariant given;
  const HRESULT outcome = guarded(object(), [&]() -> HRESULT {
    const HRESULT read = readTable();
    if (FAILED(read)) return read;
    const Member* const member = meantMember(table_, id, flags);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
    Call call(*member);
    const HRESULT taken = call.take(*parameters, language, argument);
    if (FAILED(taken)) return taken;
    // Error information that an earlier call left must not be taken for this one's.
    SetErrorInfo(0, nullptr);
    const HRESULT made = call.make(*this, given);
    if (SUCCEEDED(made)) return S_OK;
    giveException(made, exception);
    return DISP_E_EXCEPTION;
  });
  // Last, since it may be the very variable that an argument referred to.
  if (result != nullptr) *result = given.detach();
  return outcome;
}

}  // namespace activex
