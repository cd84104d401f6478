#pragma once

#include <windows.h>

#include <ole2.h>

#include <string>

#include "ComOwner.h"

namespace form {

inline constexpr wchar_t kProgId[] = L"Kelvane.KelvaneCtl";
inline constexpr int kBits = 8 * static_cast<int>(sizeof(void*));

// A new control: the one in KelvaneCtl.ocx beside this program when its manifest lies there too,
// else the registered one. host::HostError when there is neither.
void makeControl(host::ComOwner<IUnknown>& control);

// What to do when makeControl failed so: for the user, in a few lines.
std::wstring howToGetControl(HRESULT failure);

}  // namespace form
