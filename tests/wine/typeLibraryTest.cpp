#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include "ComOwner.h"
#include "KelvaneCtl.idl.h"
#include "describeTypes.h"
#include "library.h"
#include "support/TempFolder.h"

namespace winetest {
namespace {

using host::ComOwner;

constexpr std::size_t kLongestHelp = 255;  // what form designers keep of a help text
constexpr GUID kStdole = {0x00020430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kColour = {
    0x66504301, 0xBE0F, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

class TypeLibrary : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(load(libraryPath()), S_OK); }

  HRESULT load(const std::wstring& file) {
    return LoadTypeLibEx(file.c_str(), REGKIND_NONE, types_.receive());
  }

  // The interface's functions, as those see them who call them directly.
  void forEachFunction(const std::function<void(ITypeInfo&, const FUNCDESC&)>& visit) {
    ComOwner<ITypeInfo> dispatch, direct;
    HREFTYPE reference = 0;
    ASSERT_EQ(types_->GetTypeInfoOfGuid(__uuidof(_KelvaneCtl), dispatch.receive()), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, direct.receive()), S_OK);
    FUNCDESC* function = nullptr;
    UINT count = 0;
    while (direct->GetFuncDesc(count, &function) == S_OK) {
      ++count;
      visit(*direct.get(), *function);
      direct->ReleaseFuncDesc(function);
    }
    EXPECT_EQ(count, 24U);
  }

  static std::wstring helpOf(ITypeInfo& info, MEMBERID member) {
    BSTR text = nullptr;
    EXPECT_EQ(info.GetDocumentation(member, nullptr, &text, nullptr, nullptr), S_OK);
    const std::wstring help = text != nullptr ? text : L"";
    SysFreeString(text);
    return help;
  }

  WORD typeFlags(REFGUID type) {
    ComOwner<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(types_->GetTypeInfoOfGuid(type, info.receive()), S_OK);
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const WORD flags = attributes->wTypeFlags;
    info->ReleaseTypeAttr(attributes);
    return flags;
  }

  ComOwner<ITypeLib> types_;
};

// Identifiers, numbers, names, types and help never change unnoticed once they are out.
TEST_F(TypeLibrary, IsFrozen) {
  const std::string expected = readFile(dataFile(L"types.expected"));
  ASSERT_NE(expected, "");
  EXPECT_EQ(describeTypes(*types_.get()), expected);
}

// Whichever compiler looks at whichever file finds the same types.
TEST_F(TypeLibrary, IsTheSameForBothBitnesses) {
  const std::string own = describeTypes(*types_.get());
  for (const auto& [file, system] : {std::pair{L"types32.tlb", SYS_WIN32},
                                     std::pair{L"types64.tlb", SYS_WIN64}}) {
    ASSERT_EQ(load(dataFile(file)), S_OK);
    EXPECT_EQ(describeTypes(*types_.get()), own);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(types_->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->syskind, system);
    types_->ReleaseTLibAttr(attributes);
  }
}

TEST_F(TypeLibrary, HasAutomationTypesOnly) {
  const std::set<VARTYPE> simple = {VT_BSTR, VT_VARIANT, VT_BOOL, VT_I4, VT_R4};
  forEachFunction([&](ITypeInfo&, const FUNCDESC& function) {
    EXPECT_EQ(function.elemdescFunc.tdesc.vt, VT_HRESULT);
    EXPECT_EQ(function.callconv, CC_STDCALL);
    EXPECT_EQ(function.cParamsOpt, 0);
    for (SHORT i = 0; i < function.cParams; ++i) {
      const ELEMDESC& parameter = function.lprgelemdescParam[i];
      const bool result = parameter.paramdesc.wParamFlags == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
      EXPECT_TRUE(result || parameter.paramdesc.wParamFlags == PARAMFLAG_FIN) << function.memid;
      EXPECT_EQ(parameter.tdesc.vt == VT_PTR, result) << function.memid;
      const VARTYPE type = result ? parameter.tdesc.lptdesc->vt : parameter.tdesc.vt;
      EXPECT_TRUE(simple.count(type) == 1 || type == VT_USERDEFINED) << function.memid;
    }
  });
}

// As the system's library has it, so that hosts offer their own colours for it.
TEST_F(TypeLibrary, HasColoursOfTheSystem) {
  int colours = 0;
  forEachFunction([&](ITypeInfo& info, const FUNCDESC& function) {
    for (SHORT i = 0; i < function.cParams; ++i) {
      const TYPEDESC& type = function.lprgelemdescParam[i].tdesc;
      if (type.vt != VT_USERDEFINED) continue;
      ++colours;
      ComOwner<ITypeInfo> colour;
      ComOwner<ITypeLib> home;
      UINT index = 0;
      TYPEATTR* its = nullptr;
      TLIBATTR* library = nullptr;
      ASSERT_EQ(info.GetRefTypeInfo(type.hreftype, colour.receive()), S_OK);
      ASSERT_EQ(colour->GetTypeAttr(&its), S_OK);
      ASSERT_EQ(colour->GetContainingTypeLib(home.receive(), &index), S_OK);
      ASSERT_EQ(home->GetLibAttr(&library), S_OK);
      EXPECT_EQ(its->typekind, TKIND_ALIAS);
      EXPECT_EQ(its->tdescAlias.vt, VT_UI4);
      EXPECT_TRUE(IsEqualGUID(its->guid, kColour));
      EXPECT_TRUE(IsEqualGUID(library->guid, kStdole));
      colour->ReleaseTypeAttr(its);
      home->ReleaseTLibAttr(library);
    }
  });
  EXPECT_EQ(colours, 1);
}

TEST_F(TypeLibrary, HelpsWithEverything) {
  std::set<std::wstring> helps;
  forEachFunction([&](ITypeInfo& info, const FUNCDESC& function) {
    helps.insert(helpOf(info, function.memid));
  });
  EXPECT_EQ(helps.size(), 21U);  // the two halves of a property have the same
  for (UINT i = 0; i < types_->GetTypeInfoCount(); ++i) {
    ComOwner<ITypeInfo> info;
    ASSERT_EQ(types_->GetTypeInfo(i, info.receive()), S_OK);
    helps.insert(helpOf(*info.get(), MEMBERID_NIL));
  }
  for (const std::wstring& help : helps) {
    EXPECT_FALSE(help.empty());
    EXPECT_LE(help.size(), kLongestHelp);
  }
}

TEST_F(TypeLibrary, OffersTheClassAsAControl) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(types_->GetLibAttr(&attributes), S_OK);
  EXPECT_NE(attributes->wLibFlags & LIBFLAG_FCONTROL, 0);
  EXPECT_EQ(attributes->wLibFlags & (LIBFLAG_FRESTRICTED | LIBFLAG_FHIDDEN), 0);
  types_->ReleaseTLibAttr(attributes);
  EXPECT_EQ(typeFlags(__uuidof(KelvaneCtl)), TYPEFLAG_FCONTROL | TYPEFLAG_FCANCREATE);
  // A dispatchable interface gets that flag beside those that were given.
  EXPECT_EQ(typeFlags(__uuidof(_KelvaneCtl)),
            TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN);
}

// Designers read the types of files that they never start, of the other bitness among them.
class UnstartableLibrary : public TypeLibrary {
 protected:
  // The library with the name of a system library that it needs, misspelt.
  static void copyWithoutImport(const std::filesystem::path& copy) {
    std::string bytes = readBytes(libraryPath());
    const std::string needed = "comdlg32.dll";
    const auto name = std::search(bytes.begin(), bytes.end(), needed.begin(), needed.end(),
                                  [](unsigned char one, unsigned char other) {
                                    return std::tolower(one) == other;
                                  });
    ASSERT_NE(name, bytes.end());
    *name = 'x';
    std::ofstream(copy, std::ios::binary) << bytes;
  }
  static std::string readBytes(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }
};

TEST_F(UnstartableLibrary, HasItsTypes) {
  const support::TempFolder folder;
  const std::filesystem::path copy = folder.path() / "copy.ocx";
  ASSERT_NO_FATAL_FAILURE(copyWithoutImport(copy));
  ASSERT_EQ(LoadLibraryW(copy.c_str()), nullptr);
  ASSERT_EQ(load(copy.wstring()), S_OK);
  EXPECT_EQ(describeTypes(*types_.get()), readFile(dataFile(L"types.expected")));
}

TEST_F(UnstartableLibrary, HasItsTypesAsPlainData) {
  const HMODULE file = LoadLibraryExW(libraryPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(file, nullptr);
  const HRSRC place = FindResourceW(file, MAKEINTRESOURCEW(1), L"TYPELIB");
  ASSERT_NE(place, nullptr);
  const std::string bytes(static_cast<const char*>(LockResource(LoadResource(file, place))),
                          SizeofResource(file, place));
  FreeLibrary(file);
  const support::TempFolder folder;
  const std::filesystem::path copy = folder.path() / "copy.tlb";
  std::ofstream(copy, std::ios::binary) << bytes;
  ASSERT_EQ(load(copy.wstring()), S_OK);
  EXPECT_EQ(describeTypes(*types_.get()), readFile(dataFile(L"types.expected")));
}

}  // namespace
}  // namespace winetest
