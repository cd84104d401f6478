#include "describeTypes.h"

#include <ole2.h>

#include <map>
#include <vector>

#include "ComOwner.h"
#include "Dispatch.h"

namespace winetest {
namespace {

using host::ComOwner;

std::string idText(REFGUID id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return host::narrow(text);
}

std::string taken(BSTR text) {
  const std::string narrow = text != nullptr ? host::narrow(text) : "?";
  SysFreeString(text);
  return narrow;
}

std::string nameOf(ITypeInfo& info, MEMBERID member) {
  BSTR name = nullptr;
  info.GetDocumentation(member, &name, nullptr, nullptr, nullptr);
  return taken(name);
}

std::string helpOf(ITypeInfo& info, MEMBERID member) {
  BSTR help = nullptr;
  info.GetDocumentation(member, nullptr, &help, nullptr, nullptr);
  return taken(help);
}

// A type that another one builds on, and the library that it comes from.
std::string baseText(ITypeInfo& info, HREFTYPE reference) {
  ComOwner<ITypeInfo> named;
  ComOwner<ITypeLib> home;
  UINT index = 0;
  TLIBATTR* library = nullptr;
  if (FAILED(info.GetRefTypeInfo(reference, named.receive())) ||
      FAILED(named->GetContainingTypeLib(home.receive(), &index)) ||
      FAILED(home->GetLibAttr(&library))) {
    return "a type that cannot be read";
  }
  const std::string text = nameOf(*named.get(), MEMBERID_NIL) + " of " + idText(library->guid);
  home->ReleaseTLibAttr(library);
  return text;
}

std::string typeText(ITypeInfo& info, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::string> names = {
      {VT_VOID, "void"}, {VT_HRESULT, "HRESULT"}, {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"},
      {VT_BOOL, "VARIANT_BOOL"}, {VT_I2, "short"}, {VT_I4, "long"}, {VT_R4, "float"},
      {VT_R8, "double"}};
  if (type.vt == VT_PTR) return typeText(info, *type.lptdesc) + "*";
  if (type.vt == VT_USERDEFINED) {
    ComOwner<ITypeInfo> named;
    host::require(info.GetRefTypeInfo(type.hreftype, named.receive()), "a type with a name");
    return nameOf(*named.get(), MEMBERID_NIL);
  }
  const auto known = names.find(type.vt);
  return known != names.end() ? known->second : "vt " + std::to_string(type.vt);
}

std::string callText(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_FUNC: return "method";
    case INVOKE_PROPERTYGET: return "get";
    case INVOKE_PROPERTYPUT: return "put";
    default: return "putref";
  }
}

// What is unusual about a parameter: neither a plain argument nor the result.
std::string parameterText(USHORT flags) {
  if (flags == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) return "retval ";
  return flags == PARAMFLAG_FIN ? "" : "flags " + std::to_string(flags) + " ";
}

std::string functionText(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  host::require(info.GetFuncDesc(index, &function), "a function");
  // Inherited functions, which some systems list too.
  if (function->memid >= 0x60000000) {
    info.ReleaseFuncDesc(function);
    return {};
  }
  std::vector<BSTR> names(static_cast<std::size_t>(function->cParams) + 1, nullptr);
  UINT count = 0;
  info.GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count);
  std::string text = "  " + std::to_string(function->memid) + " " + callText(function->invkind) +
                     " " + typeText(info, function->elemdescFunc.tdesc) + " " +
                     nameOf(info, function->memid) + "(";
  for (SHORT i = 0; i < function->cParams; ++i) {
    const ELEMDESC& parameter = function->lprgelemdescParam[i];
    const auto at = static_cast<UINT>(i) + 1;
    if (i > 0) text += ", ";
    text += parameterText(parameter.paramdesc.wParamFlags);
    text += typeText(info, parameter.tdesc);
    if (at < count) text += " " + host::narrow(names[at]);
  }
  text += ") at " + std::to_string(static_cast<std::size_t>(function->oVft) / sizeof(void*));
  if (function->wFuncFlags != 0) text += " flags " + std::to_string(function->wFuncFlags);
  text += "\n";
  // The two halves of a property have one text, and so have both views of a function.
  if (function->funckind == FUNC_DISPATCH && function->invkind != INVOKE_PROPERTYPUT) {
    text += "    " + helpOf(info, function->memid) + "\n";
  }
  for (const BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text;
}

std::string typeInfoText(ITypeInfo& info, const char* view) {
  static const std::map<TYPEKIND, std::string> kinds = {
      {TKIND_INTERFACE, "interface"}, {TKIND_DISPATCH, "dispatch"}, {TKIND_COCLASS, "coclass"}};
  TYPEATTR* attributes = nullptr;
  host::require(info.GetTypeAttr(&attributes), "a type");
  const auto kind = kinds.find(attributes->typekind);
  std::string text = (kind != kinds.end() ? kind->second : "kind ?") + view + " " +
                     nameOf(info, MEMBERID_NIL) + " " + idText(attributes->guid) + " flags " +
                     std::to_string(attributes->wTypeFlags) + "\n  " +
                     helpOf(info, MEMBERID_NIL) + "\n";
  for (UINT i = 0; i < attributes->cImplTypes; ++i) {
    HREFTYPE reference = 0;
    INT flags = 0;
    info.GetRefTypeOfImplType(i, &reference);
    info.GetImplTypeFlags(i, &flags);
    text += "  has " + baseText(info, reference) + " flags " + std::to_string(flags) + "\n";
  }
  for (UINT i = 0; i < attributes->cFuncs; ++i) text += functionText(info, i);
  info.ReleaseTypeAttr(attributes);
  return text;
}

}  // namespace

std::string describeTypes(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  host::require(library.GetLibAttr(&attributes), "the library");
  BSTR name = nullptr, help = nullptr;
  library.GetDocumentation(-1, &name, &help, nullptr, nullptr);
  std::string text = "library " + taken(name) + " " + idText(attributes->guid) + " " +
                     std::to_string(attributes->wMajorVerNum) + "." +
                     std::to_string(attributes->wMinorVerNum) + " flags " +
                     std::to_string(attributes->wLibFlags & LIBFLAG_FCONTROL) + "\n  " +
                     taken(help) + "\n";
  library.ReleaseTLibAttr(attributes);
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    ComOwner<ITypeInfo> info, direct;
    host::require(library.GetTypeInfo(i, info.receive()), "a type");
    text += typeInfoText(*info.get(), "");
    // The same interface as those see it who call its functions directly.
    HREFTYPE reference = 0;
    if (SUCCEEDED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) &&
        SUCCEEDED(info->GetRefTypeInfo(reference, direct.receive()))) {
      text += typeInfoText(*direct.get(), " (direct)");
    }
  }
  return text;
}

}  // namespace winetest
