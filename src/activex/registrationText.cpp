#include "activex/registrationText.h"

#include <ole2.h>

#include <charconv>

namespace activex {

std::wstring textOf(REFGUID id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring hexadecimal(unsigned long number) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  return std::wstring(digits, end);
}

}  // namespace activex
