#include "activex/MemberTable.h"

#include <algorithm>
#include <memory>

#include "activex/ComPtr.h"

namespace activex {
namespace {

// A dual interface describes its dispatch side; its functions stand behind this index.
constexpr UINT kFunctionSide = static_cast<UINT>(-1);

HRESULT functionSide(ITypeInfo& description, ComPtr<ITypeInfo>& functions) {
  HREFTYPE reference = 0;
  const HRESULT found = description.GetRefTypeOfImplType(kFunctionSide, &reference);
  return FAILED(found) ? found : description.GetRefTypeInfo(reference, functions.receive());
}

// The type that a type by a name of its own stands for.
VARTYPE aliased(ITypeInfo& info, HREFTYPE reference) {
  ComPtr<ITypeInfo> named;
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetRefTypeInfo(reference, named.receive())) ||
      FAILED(named->GetTypeAttr(&attributes))) {
    return VT_EMPTY;
  }
  const VARTYPE type =
      attributes->typekind == TKIND_ALIAS ? attributes->tdescAlias.vt : VARTYPE{VT_EMPTY};
  named->ReleaseTypeAttr(attributes);
  return type;
}

VARTYPE typeOf(ITypeInfo& info, const TYPEDESC& type) {
  return type.vt == VT_USERDEFINED ? aliased(info, type.hreftype) : type.vt;
}

Member memberOf(ITypeInfo& info, const FUNCDESC& function) {
  Member member;
  member.id = function.memid;
  member.kind = function.invkind;
  member.offset = static_cast<ULONG_PTR>(function.oVft);
  constexpr UINT room = 16;  // a name, and more parameters than any member has
  BSTR names[room] = {};
  UINT count = 0;
  info.GetNames(function.memid, names, room, &count);
  const auto nameAt = [&](UINT place) {
    return place < count ? std::wstring(names[place], SysStringLen(names[place])) : L"";
  };
  member.name = nameAt(0);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
      member.result = typeOf(info, *parameter.tdesc.lptdesc);
    } else {
      const auto place = static_cast<UINT>(i) + 1;
      member.parameters.push_back({nameAt(place), typeOf(info, parameter.tdesc)});
    }
  }
  std::for_each(names, names + count, SysFreeString);
  return member;
}

}  // namespace

HRESULT MemberTable::read(ITypeInfo& description) {
  ComPtr<ITypeInfo> info;
  HRESULT result = functionSide(description, info);
  if (FAILED(result)) return result;
  TYPEATTR* attributes = nullptr;
  result = info->GetTypeAttr(&attributes);
  if (FAILED(result)) return result;
  const UINT count = attributes->cFuncs;
  info->ReleaseTypeAttr(attributes);

  std::vector<Member> members;
  for (UINT i = 0; i < count; ++i) {
    FUNCDESC* function = nullptr;
    result = info->GetFuncDesc(i, &function);
    if (FAILED(result)) return result;
    const auto release = [&](FUNCDESC* described) { info->ReleaseFuncDesc(described); };
    const std::unique_ptr<FUNCDESC, decltype(release)> held(function, release);
    members.push_back(memberOf(*info.get(), *function));
  }
  members_ = std::move(members);
  return S_OK;
}

const Member* MemberTable::find(DISPID id, INVOKEKIND kind) const {
  const auto found = std::find_if(members_.begin(), members_.end(), [&](const Member& member) {
    return member.id == id && member.kind == kind;
  });
  return found != members_.end() ? &*found : nullptr;
}

const Member* MemberTable::find(std::wstring_view name) const {
  const auto found = std::find_if(members_.begin(), members_.end(), [&](const Member& member) {
    return sameName(member.name, name);
  });
  return found != members_.end() ? &*found : nullptr;
}

bool sameName(std::wstring_view one, std::wstring_view other) {
  return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(),
                              static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace activex
