#pragma once

#include <windows.h>

#include <ole2.h>

// What the control is called, and what it tells its hosts about itself.
namespace activex {

inline constexpr wchar_t kUserType[] = L"Kelvane section control";
inline constexpr wchar_t kShortUserType[] = L"Section";  // at most 15 letters
inline constexpr wchar_t kApplication[] = L"Kelvane";
inline constexpr wchar_t kProgId[] = L"Kelvane.KelvaneCtl";
inline constexpr wchar_t kVersionedProgId[] = L"Kelvane.KelvaneCtl.1";
inline constexpr wchar_t kVersion[] = L"1.0";

// Placed before it is loaded, active as soon as it is visible, redrawn on every resize, and
// nothing that one could link to.
inline constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                     OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                     OLEMISC_SETCLIENTSITEFIRST;

// What may be registered side by side with a library for the other kind of process.
inline constexpr int kBits = 8 * static_cast<int>(sizeof(void*));

}  // namespace activex
