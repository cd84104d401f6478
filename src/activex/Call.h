#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "activex/MemberTable.h"
#include "activex/OwnedVariant.h"

namespace activex {

// The member that a caller means by an identifier and the flags of Invoke; null when there is
// none. A property may be called like a method, and a method read like a property: languages that
// know no difference, or cannot tell yet, send either.
const Member* meantMember(const MemberTable& table, DISPID id, WORD flags);

// A call of a member with what a caller of Invoke gives.
class Call {
 public:
  explicit Call(const Member& member) : member_(member) {}

  // Puts the arguments, by place or by name, in the order of the parameters and gives them their
  // types. On failure *wrong, unless it is null, tells which of the caller's it was.
  HRESULT take(const DISPPARAMS& given, LCID language, UINT* wrong);
  // Calls the function of an object that has the described interface. The result stays empty when
  // the function fails or has none.
  HRESULT make(IDispatch& object, OwnedVariant& result);

 private:
  HRESULT place(const DISPPARAMS& given, std::vector<UINT>& places, UINT& wrong) const;

  const Member& member_;
  std::vector<OwnedVariant> arguments_;
};

}  // namespace activex
