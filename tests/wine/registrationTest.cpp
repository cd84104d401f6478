#include <gtest/gtest.h>
#include <ole2.h>
#include <olectl.h>
#include <windows.h>

#include <vector>

#include "ComOwner.h"
#include "Dispatch.h"
#include "childProcess.h"
#include "library.h"
#include "registryTree.h"

namespace winetest {
namespace {

constexpr wchar_t kClass[] = L"CLSID\\{8A6F972D-535F-4438-972A-00CA8732D855}";
constexpr wchar_t kTypeLibrary[] = L"{3033FD37-B089-4B29-9939-F65BFABD91D3}";

struct Trees {
  RegistryTree machine = readTree(HKEY_LOCAL_MACHINE, L"Software");
  RegistryTree user = readTree(HKEY_CURRENT_USER, L"Software");
};

void expectSame(const Trees& before, const Trees& after) {
  EXPECT_EQ(difference(before.machine, after.machine), "");
  EXPECT_EQ(difference(before.user, after.user), "");
}

unsigned long regsvr32(const std::wstring& options) {
  const Outcome outcome =
      runProgram(L"regsvr32.exe /s " + options + L" \"" + libraryPath() + L"\"");
  EXPECT_TRUE(outcome.ended);
  return outcome.status;
}

std::wstring read(const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[1024] = {};
  DWORD size = sizeof text;
  const LSTATUS status =
      RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? std::wstring(text) : L"(absent)";
}

class Registration : public testing::Test {
 protected:
  void SetUp() override { regsvr32(L"/u"); }
  void TearDown() override { regsvr32(L"/u"); }
};

TEST_F(Registration, LeavesNoTraceAndCanBeRepeated) {
  const Trees before;
  ASSERT_EQ(regsvr32(L""), 0U);
  const Trees once;
  EXPECT_NE(difference(before.machine, once.machine), "");
  EXPECT_EQ(regsvr32(L""), 0U);
  expectSame(once, Trees());
  EXPECT_EQ(regsvr32(L"/u"), 0U);
  EXPECT_EQ(regsvr32(L"/u"), 0U);
  expectSame(before, Trees());
}

TEST_F(Registration, WritesWhatHostsLookUp) {
  ASSERT_EQ(regsvr32(L""), 0U);
  const std::wstring key = kClass;
  const struct {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
  } rows[] = {
      {L"Kelvane.KelvaneCtl\\CLSID", nullptr, key.substr(6)},
      {L"Kelvane.KelvaneCtl\\CurVer", nullptr, L"Kelvane.KelvaneCtl.1"},
      {L"Kelvane.KelvaneCtl.1\\CLSID", nullptr, key.substr(6)},
      {key + L"\\ProgID", nullptr, L"Kelvane.KelvaneCtl.1"},
      {key + L"\\VersionIndependentProgID", nullptr, L"Kelvane.KelvaneCtl"},
      {key + L"\\InprocServer32", nullptr, libraryPath()},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\TypeLib", nullptr, kTypeLibrary},
      {key + L"\\Version", nullptr, L"1.0"},
      {key + L"\\MiscStatus", nullptr, L"0"},
      {key + L"\\MiscStatus\\1", nullptr, L"131473"},
      {key + L"\\Control", nullptr, L""},
      {key + L"\\Programmable", nullptr, L""},
      {key + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", nullptr, L""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(host::narrow(read(row.key, row.name)), host::narrow(row.value))
        << host::narrow(row.key);
  }
}

TEST_F(Registration, MakesTheControlAndItsTypesKnown) {
  ASSERT_EQ(regsvr32(L""), 0U);
  CLSID id = {};
  ASSERT_EQ(CLSIDFromProgID(L"Kelvane.KelvaneCtl.1", &id), S_OK);
  host::ComOwner<IUnknown> control;
  EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.receiveAny()),
            S_OK);
  GUID library = {};
  ASSERT_EQ(CLSIDFromString(kTypeLibrary, &library), S_OK);
  host::ComOwner<ITypeLib> types;
  EXPECT_EQ(LoadRegTypeLib(library, 1, 0, 0, types.receive()), S_OK);
}

// A key in which nothing lasting can be made refuses the writes below it.
class RefusedRegistration : public testing::Test {
 protected:
  static constexpr wchar_t kStage[] = L"Software\\KelvaneRegistrationTest";

  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kStage);
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, kStage, &stage_), ERROR_SUCCESS);
  }
  void TearDown() override {
    RegCloseKey(stage_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kStage);
  }

  HRESULT registerWithout(const wchar_t* refused) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(stage_, refused, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, stage_), ERROR_SUCCESS);
    const HRESULT result = library_.registerServer();
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr), ERROR_SUCCESS);
    return result;
  }

  RegistryTree stage() const { return readTree(HKEY_CURRENT_USER, kStage); }

 private:
  Library library_;
  HKEY stage_ = nullptr;
};

TEST_F(RefusedRegistration, OfTheClassTakesBackTheNames) {
  EXPECT_EQ(registerWithout(L"CLSID"), SELFREG_E_CLASS);
  EXPECT_EQ(stage().size(), 2U) << difference({}, stage());
}

TEST_F(RefusedRegistration, OfTheTypesTakesBackTheClass) {
  EXPECT_EQ(registerWithout(L"TypeLib"), SELFREG_E_TYPELIB);
  const RegistryTree left = stage();
  const std::wstring root = kStage;
  EXPECT_FALSE(left.contains(root + L"\\" + kClass)) << difference({}, left);
  EXPECT_FALSE(left.contains(root + L"\\Kelvane.KelvaneCtl"));
  EXPECT_FALSE(left.contains(root + L"\\Kelvane.KelvaneCtl.1"));
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
  EXPECT_EQ(host::narrow(static_cast<const wchar_t*>(text)), "Kelvane section control (32-bit)");
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
