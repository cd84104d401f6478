#pragma once

#include <windows.h>

#include <oaidl.h>

#include "activex/ComPtr.h"

namespace activex {

// The type library inside our own file, whether or not it is registered.
HRESULT loadTypeLibrary(ComPtr<ITypeLib>& library);
// The description of one of its types.
HRESULT loadTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info);

}  // namespace activex
