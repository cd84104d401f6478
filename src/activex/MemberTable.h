#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <string_view>
#include <vector>

namespace activex {

// One function of the automation interface.
struct Member {
  struct Parameter {
    std::wstring name;
    VARTYPE type = VT_EMPTY;
  };

  std::wstring name;
  DISPID id = DISPID_UNKNOWN;
  INVOKEKIND kind = INVOKE_FUNC;
  ULONG_PTR offset = 0;               // in bytes, in the table of the interface's functions
  std::vector<Parameter> parameters;  // what a caller gives, in order
  VARTYPE result = VT_EMPTY;          // of the last parameter, for the result; VT_EMPTY: none
};

// The functions of the automation interface as the type library describes them, and nothing that
// the interface inherits: names like AddRef are not for callers.
class MemberTable {
 public:
  // Reads the description of a dual interface.
  HRESULT read(ITypeInfo& description);
  bool empty() const { return members_.empty(); }

  // Null when there is none. Letters in names may be large or small; the get and the let of a
  // property have one name, of which the get is found.
  const Member* find(DISPID id, INVOKEKIND kind) const;
  const Member* find(std::wstring_view name) const;

 private:
  std::vector<Member> members_;
};

// Whether two names are the same to a caller.
bool sameName(std::wstring_view one, std::wstring_view other);

}  // namespace activex
