#include "activex/ClassFactory.h"

#include "activex/KelvaneObject.h"
#include "activex/guard.h"

namespace activex {

HRESULT ClassFactory::create(REFIID iid, void** answer) {
  return guarded([&] {
    auto* created = new ClassFactory;
    const HRESULT result = created->QueryInterface(iid, answer);
    created->Release();
    return result;
  });
}

HRESULT STDMETHODCALLTYPE ClassFactory::QueryInterface(REFIID iid, void** answer) {
  if (answer == nullptr) return E_POINTER;
  *answer = nullptr;
  if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
  *answer = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG STDMETHODCALLTYPE ClassFactory::AddRef() { return ++references_; }

ULONG STDMETHODCALLTYPE ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT STDMETHODCALLTYPE ClassFactory::CreateInstance(IUnknown* outer, REFIID iid,
                                                       void** answer) {
  if (answer == nullptr) return E_POINTER;
  *answer = nullptr;
  return outer != nullptr ? CLASS_E_NOAGGREGATION : KelvaneObject::create(iid, answer);
}

HRESULT STDMETHODCALLTYPE ClassFactory::LockServer(BOOL lock) {
  lock ? ModuleReference::lock() : ModuleReference::unlock();
  return S_OK;
}

}  // namespace activex
