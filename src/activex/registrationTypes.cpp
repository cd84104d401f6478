#include "activex/registrationTypes.h"

#include <olectl.h>

#include <string>
#include <vector>

#include "activex/module.h"
#include "activex/registrationText.h"
#include "activex/typeLibrary.h"

namespace activex {
namespace {

// The marshalling that the system has for automation interfaces.
constexpr wchar_t kDispatchProxy[] = L"{00020420-0000-0000-C000-000000000046}";
constexpr wchar_t kTypeLibraryProxy[] = L"{00020424-0000-0000-C000-000000000046}";

constexpr const wchar_t* kPlatform = sizeof(void*) == 4 ? L"win32" : L"win64";

struct LibraryAttributes {
  GUID id = {};
  WORD major = 0, minor = 0, flags = 0;
  LCID language = 0;

  std::wstring key() const { return L"TypeLib\\" + textOf(id); }
  std::wstring version() const { return hexadecimal(major) + L"." + hexadecimal(minor); }
  std::wstring versionKey() const { return key() + L"\\" + version(); }
  std::wstring languageKey() const { return versionKey() + L"\\" + hexadecimal(language); }
  std::wstring platformKey() const { return languageKey() + L"\\" + kPlatform; }
};

bool readAttributes(ITypeLib& library, LibraryAttributes& read) {
  TLIBATTR* found = nullptr;
  if (FAILED(library.GetLibAttr(&found))) return false;
  read = {found->guid, found->wMajorVerNum, found->wMinorVerNum, found->wLibFlags, found->lcid};
  library.ReleaseTLibAttr(found);
  return true;
}

struct Interface {
  GUID id = {};
  std::wstring name;
  const wchar_t* proxy = kDispatchProxy;
};

struct LibraryDescription {
  ComPtr<ITypeLib> library;
  LibraryAttributes attributes;
  std::vector<Interface> interfaces;
};

std::wstring nameOf(ITypeLib& library, INT index) {
  BSTR text = nullptr;
  std::wstring name;
  if (SUCCEEDED(library.GetDocumentation(index, &text, nullptr, nullptr, nullptr))) {
    name.assign(text, SysStringLen(text));
    SysFreeString(text);
  }
  return name;
}

std::wstring helpTextOf(ITypeLib& library) {
  BSTR text = nullptr;
  std::wstring help;
  if (SUCCEEDED(library.GetDocumentation(-1, nullptr, &text, nullptr, nullptr))) {
    help.assign(text, SysStringLen(text));
    SysFreeString(text);
  }
  return help;
}

// Those that can be called from another process with the library alone.
bool readInterfaces(ITypeLib& library, std::vector<Interface>& interfaces) {
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(library.GetTypeInfo(index, info.receive())) ||
        FAILED(info->GetTypeAttr(&attributes))) {
      return false;
    }
    const bool automation =
        (attributes->wTypeFlags & (TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDUAL)) != 0;
    if (attributes->typekind == TKIND_DISPATCH ||
        (attributes->typekind == TKIND_INTERFACE && automation)) {
      interfaces.push_back({attributes->guid, nameOf(library, static_cast<INT>(index)),
                            automation ? kTypeLibraryProxy : kDispatchProxy});
    }
    info->ReleaseTypeAttr(attributes);
  }
  return true;
}

std::wstring interfaceKey(const Interface& described) {
  return L"Interface\\" + textOf(described.id);
}

bool writeKeys(RegistrationJournal& journal, const LibraryDescription& described,
               const std::wstring& path) {
  const LibraryAttributes& its = described.attributes;
  const std::wstring version = its.versionKey();
  // That the library lies on a disk is no property of it that anybody looks up.
  const int flags = its.flags & ~LIBFLAG_FHASDISKIMAGE;
  bool written =
      journal.write(version, nullptr, helpTextOf(*described.library.get())) &&
      journal.write(its.platformKey(), nullptr, path) &&
      journal.write(version + L"\\FLAGS", nullptr, std::to_wstring(flags)) &&
      // There is no help file, and an entry common to both bitnesses has no place for the folder
      // of one.
      journal.write(version + L"\\HELPDIR", nullptr, L"");
  for (const Interface& one : described.interfaces) {
    const std::wstring key = interfaceKey(one);
    written = written && journal.write(key, nullptr, one.name) &&
              journal.write(key + L"\\ProxyStubClsid32", nullptr, one.proxy) &&
              journal.write(key + L"\\TypeLib", nullptr, textOf(its.id)) &&
              journal.write(key + L"\\TypeLib", L"Version", its.version());
  }
  return written;
}

bool removeKeys(const RegistrationRoot& root, const LibraryDescription& described) {
  const LibraryAttributes& its = described.attributes;
  bool removed = root.removeTree(its.platformKey());
  root.removeIfEmpty(its.languageKey());
  if (!root.exists(its.languageKey())) {
    removed = root.removeTree(its.versionKey()) && removed;
    root.removeIfEmpty(its.key());
  }
  for (const Interface& one : described.interfaces) {
    removed = root.removeTree(interfaceKey(one)) && removed;
  }
  return removed;
}

bool readAll(LibraryDescription& read) {
  return SUCCEEDED(loadTypeLibrary(read.library)) &&
         readAttributes(*read.library.get(), read.attributes) &&
         readInterfaces(*read.library.get(), read.interfaces);
}

}  // namespace

HRESULT writeTypeLibrary(RegistrationJournal& journal) {
  LibraryDescription description;
  const bool written = readAll(description) && writeKeys(journal, description, modulePath());
  return written ? S_OK : SELFREG_E_TYPELIB;
}

HRESULT removeTypeLibrary(const RegistrationRoot& root) {
  LibraryDescription description;
  const bool removed = readAll(description) && removeKeys(root, description);
  return removed ? S_OK : SELFREG_E_TYPELIB;
}

}  // namespace activex
