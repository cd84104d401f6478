#include "activex/typeLibrary.h"

#include "activex/module.h"

namespace activex {

HRESULT loadTypeLibrary(ComPtr<ITypeLib>& library) {
  return LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.receive());
}

HRESULT loadTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = loadTypeLibrary(library);
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, info.receive());
}

}  // namespace activex
