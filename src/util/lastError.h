#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace util {

// Text of the last failure, as ErrorMessage gives it to the host. Success never clears it.
extern std::string LastError;

// Report a trapped run-time error; call these inside a catch block. They never fail themselves:
// without the memory for its text a report is "Out of memory".
// "[Routine] Error: description", for routines whose messages carry a bracketed tag.
void reportBracketed(std::string_view routine) noexcept;
// "Module Routine: number, KelvaneCtl, description", for routines tagged with module and name.
void reportTagged(std::string_view tag) noexcept;
// How many failures these two have reported: tells a new one from an old one of the same text.
uint32_t failuresReported();

}  // namespace util
