#include "model/address.h"

namespace form {

bool isAddress(const std::wstring& name) { return name.find(L"://") != std::wstring::npos; }

}  // namespace form
