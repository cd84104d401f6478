#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <vector>

#include "ComOwner.h"
#include "Dispatch.h"
#include "registrationTestSupport.h"
#include "registryTree.h"

namespace winetest {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

constexpr bool k32Bit = sizeof(void*) == 4;
const std::wstring kPlatform = k32Bit ? L"win32" : L"win64";
const std::wstring kOtherPlatform = k32Bit ? L"win64" : L"win32";

struct Trees {
  RegistryTree machine = readTree(HKEY_LOCAL_MACHINE, L"Software");
  RegistryTree user = readTree(HKEY_CURRENT_USER, L"Software");
};

void expectSame(const Trees& before, const Trees& after) {
  EXPECT_EQ(difference(before.machine, after.machine), "");
  EXPECT_EQ(difference(before.user, after.user), "");
}

std::wstring read(const Extent& extent, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[1024] = {};
  DWORD size = sizeof text;
  const LSTATUS status =
      RegGetValueW(extent.hive, (std::wstring(kClasses) + L"\\" + key).c_str(), name,
                   RRF_RT_REG_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? std::wstring(text) : L"(absent)";
}

bool exists(const Extent& extent, const std::wstring& key) {
  return !readTree(extent.hive, std::wstring(kClasses) + L"\\" + key).empty();
}

class Registration : public NothingRegistered, public testing::WithParamInterface<Extent> {};

INSTANTIATE_TEST_SUITE_P(For, Registration, testing::Values(kMachine, kUser),
                         testing::PrintToStringParamName());

TEST_P(Registration, LeavesNoTraceAndCanBeRepeated) {
  const Trees before;
  ASSERT_EQ(registerFor(GetParam()), 0U);
  const Trees once;
  const bool user = GetParam().hive == HKEY_CURRENT_USER;
  EXPECT_EQ(difference(before.machine, once.machine).empty(), user);
  EXPECT_EQ(difference(before.user, once.user).empty(), !user);
  EXPECT_EQ(registerFor(GetParam()), 0U);
  expectSame(once, Trees());
  EXPECT_EQ(unregisterFor(GetParam()), 0U);
  EXPECT_EQ(unregisterFor(GetParam()), 0U);
  expectSame(before, Trees());
}

TEST_P(Registration, WritesWhatHostsLookUp) {
  ASSERT_EQ(registerFor(GetParam()), 0U);
  const std::wstring types = std::wstring(L"TypeLib\\") + kTypeLibraryId + L"\\1.0";
  const std::wstring members = std::wstring(L"Interface\\") + kInterfaceId;
  const struct {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
  } rows[] = {
      {L"Kelvane.KelvaneCtl\\CLSID", nullptr, kClassId},
      {L"Kelvane.KelvaneCtl\\CurVer", nullptr, L"Kelvane.KelvaneCtl.1"},
      {L"Kelvane.KelvaneCtl.1\\CLSID", nullptr, kClassId},
      {kClass + L"\\ProgID", nullptr, L"Kelvane.KelvaneCtl.1"},
      {kClass + L"\\VersionIndependentProgID", nullptr, L"Kelvane.KelvaneCtl"},
      {kClass + L"\\InprocServer32", nullptr, libraryPath()},
      {kClass + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {kClass + L"\\TypeLib", nullptr, kTypeLibraryId},
      {kClass + L"\\Version", nullptr, L"1.0"},
      {kClass + L"\\MiscStatus", nullptr, L"0"},
      {kClass + L"\\MiscStatus\\1", nullptr, L"131473"},
      {kClass + L"\\Control", nullptr, L""},
      {kClass + L"\\Programmable", nullptr, L""},
      {kClass + L"\\Insertable", nullptr, L"(absent)"},
      {kClass + L"\\ToolboxBitmap32", nullptr, libraryPath() + L",1"},
      {kClass + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", nullptr, L""},
      {types, nullptr, L"Kelvane section control"},
      {types + L"\\0\\" + kPlatform, nullptr, libraryPath()},
      {types + L"\\FLAGS", nullptr, L"2"},
      {members, nullptr, L"_KelvaneCtl"},
      {members + L"\\ProxyStubClsid32", nullptr, L"{00020424-0000-0000-C000-000000000046}"},
      {members + L"\\TypeLib", nullptr, kTypeLibraryId},
      {members + L"\\TypeLib", L"Version", L"1.0"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(host::narrow(read(GetParam(), row.key, row.name)), host::narrow(row.value))
        << host::narrow(row.key);
  }
}

// Categories promise interfaces, and the other way round.
TEST_P(Registration, NamesThePersistenceThatTheControlHas) {
  ASSERT_EQ(registerFor(GetParam()), 0U);
  const struct {
    const wchar_t* category;
    GUID iid;
  } rows[] = {
      {L"{0DE86A52-2BAA-11CF-A229-00AA003D7352}", IID_IPersistStorage},
      {L"{0DE86A53-2BAA-11CF-A229-00AA003D7352}", IID_IPersistStreamInit},
      {L"{0DE86A54-2BAA-11CF-A229-00AA003D7352}", IID_IPersistStream},
      {L"{0DE86A56-2BAA-11CF-A229-00AA003D7352}", IID_IPersistFile},
      {L"{0DE86A57-2BAA-11CF-A229-00AA003D7352}", IID_IPersistPropertyBag},
  };
  const Library library;
  CLSID id = {};
  ASSERT_EQ(CLSIDFromString(kClassId, &id), S_OK);
  host::ComOwner<IClassFactory> factory;
  ASSERT_EQ(library.getClassObject(id, IID_IClassFactory, factory.receiveAny()), S_OK);
  host::ComOwner<IUnknown> control;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, control.receiveAny()), S_OK);
  for (const auto& row : rows) {
    host::ComOwner<IUnknown> answer;
    const bool answered = SUCCEEDED(control->QueryInterface(row.iid, answer.receiveAny()));
    EXPECT_EQ(exists(GetParam(), kClass + L"\\Implemented Categories\\" + row.category), answered)
        << host::narrow(row.category);
  }
}

TEST_P(Registration, LeadsDesignersToAPictureOfTheControl) {
  ASSERT_EQ(registerFor(GetParam()), 0U);
  const std::wstring place = read(GetParam(), kClass + L"\\ToolboxBitmap32");
  const std::size_t comma = place.find_last_of(L',');
  ASSERT_NE(comma, std::wstring::npos) << host::narrow(place);
  const HMODULE file = LoadLibraryExW(place.substr(0, comma).c_str(), nullptr,
                                      LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(file, nullptr);
  const auto number = static_cast<WORD>(_wtoi(place.c_str() + comma + 1));
  const HANDLE picture =
      LoadImageW(file, MAKEINTRESOURCEW(number), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  BITMAP bitmap = {};
  EXPECT_NE(GetObjectW(picture, sizeof bitmap, &bitmap), 0);
  EXPECT_EQ(bitmap.bmWidth, 16);
  EXPECT_EQ(bitmap.bmHeight, 15);
  DeleteObject(picture);
  FreeLibrary(file);
}

class RegistrationOfBoth : public NothingRegistered {};

TEST_F(RegistrationOfBoth, KeepsTheOneWhenTheOtherGoes) {
  ASSERT_EQ(registerFor(kMachine), 0U);
  const Trees machineOnly;
  ASSERT_EQ(registerFor(kUser), 0U);
  const Trees both;
  ASSERT_EQ(unregisterFor(kUser), 0U);
  expectSame(machineOnly, Trees());
  ASSERT_EQ(registerFor(kUser), 0U);
  ASSERT_EQ(unregisterFor(kMachine), 0U);
  EXPECT_EQ(difference(both.user, readTree(HKEY_CURRENT_USER, L"Software")), "");
}

// The types that a library for the other kind of process has registered, beside ours.
TEST_F(RegistrationOfBoth, LeavesTheOtherBitnessItsTypes) {
  for (const Extent& extent : {kMachine, kUser}) {
    const std::wstring library = std::wstring(kClasses) + L"\\TypeLib\\" + kTypeLibraryId;
    const std::wstring other = library + L"\\1.0\\0\\" + kOtherPlatform;
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(extent.hive, other.c_str(), &key), ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(registerFor(extent), 0U);
    EXPECT_EQ(unregisterFor(extent), 0U);
    EXPECT_FALSE(readTree(extent.hive, other).empty()) << extent.name;
    EXPECT_TRUE(readTree(extent.hive, library + L"\\1.0\\0\\" + kPlatform).empty());
    EXPECT_EQ(RegDeleteTreeW(extent.hive, library.c_str()), ERROR_SUCCESS);
  }
}

// Wine looks classes up in the machine's part of the registry alone.
TEST_F(RegistrationOfBoth, MakesTheControlAndItsTypesKnown) {
  ASSERT_EQ(registerFor(kMachine), 0U);
  CLSID id = {};
  ASSERT_EQ(CLSIDFromProgID(L"Kelvane.KelvaneCtl.1", &id), S_OK);
  host::ComOwner<IUnknown> control;
  EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.receiveAny()),
            S_OK);
  GUID library = {};
  ASSERT_EQ(CLSIDFromString(kTypeLibraryId, &library), S_OK);
  host::ComOwner<ITypeLib> types;
  EXPECT_EQ(LoadRegTypeLib(library, 1, 0, 0, types.receive()), S_OK);
}

TEST_F(RegistrationOfBoth, RefusesWordsThatItDoesNotKnow) {
  const Trees before;
  EXPECT_NE(regsvr32(L"/n /i:usr"), 0U);
  EXPECT_NE(regsvr32(L"/u /n /i:usr"), 0U);
  expectSame(before, Trees());
}

TEST_F(RegistrationOfBoth, WithoutWordsIsForEverybody) {
  ASSERT_EQ(registerFor(kMachine), 0U);
  const Trees plain;
  ASSERT_EQ(unregisterFor(kMachine), 0U);
  const Trees none;
  ASSERT_EQ(regsvr32(L"/n /i"), 0U);
  expectSame(plain, Trees());
  ASSERT_EQ(regsvr32(L"/u /n /i"), 0U);
  expectSame(none, Trees());
}

TEST(VersionResource, TellsTheBitness) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(libraryPath().c_str(), &ignored);
  std::vector<BYTE> block(size);
  ASSERT_TRUE(GetFileVersionInfoW(libraryPath().c_str(), 0, size, block.data()));
  void* text = nullptr;
  UINT length = 0;
  ASSERT_TRUE(
      VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\FileDescription", &text, &length));
  EXPECT_EQ(host::narrow(static_cast<const wchar_t*>(text)),
            k32Bit ? "Kelvane section control (32-bit)" : "Kelvane section control (64-bit)");
}

}  // namespace
}  // namespace winetest

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
