// Registrations that the registry refuses half-way.
#include <gtest/gtest.h>
#include <olectl.h>
#include <windows.h>

#include <cstring>

#include "registrationTestSupport.h"
#include "registryTree.h"

namespace winetest {
namespace {

constexpr wchar_t kStage[] = L"Software\\KelvaneRegistrationTest";
const std::wstring kStageClasses = std::wstring(kStage) + L"\\Software\\Classes";

// The hives of this process are staged below a key of their own. A key in which nothing lasting
// can be made refuses the writes below it.
class RefusedRegistration : public testing::TestWithParam<Extent> {
 protected:
  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kStage);
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, kStage, &stage_), ERROR_SUCCESS);
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, kStageClasses.c_str(), &classes_), ERROR_SUCCESS);
    module_ = LoadLibraryW(libraryPath().c_str());
    ASSERT_NE(module_, nullptr);
  }
  void TearDown() override {
    FreeLibrary(module_);
    RegCloseKey(classes_);
    RegCloseKey(stage_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kStage);
  }

  void refuse(const std::wstring& key) {
    HKEY made = nullptr;
    EXPECT_EQ(RegCreateKeyExW(classes_, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &made, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(made);
  }

  // As another version of the control, or another program, has left it.
  void set(const std::wstring& key, DWORD type, const std::wstring& text) {
    EXPECT_EQ(RegSetKeyValueW(classes_, key.c_str(), nullptr, type, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
  }
  void remove(const std::wstring& key) {
    EXPECT_EQ(RegDeleteTreeW(classes_, key.c_str()), ERROR_SUCCESS);
  }

  HRESULT install(BOOL install) {
    using Call = HRESULT(WINAPI*)(BOOL, PCWSTR);
    const FARPROC found = GetProcAddress(module_, "DllInstall");
    Call call = nullptr;
    std::memcpy(&call, &found, sizeof call);
    if (call == nullptr) return E_NOTIMPL;
    const struct {
      HKEY hive, stage;
    } staged[] = {
        {HKEY_CLASSES_ROOT, classes_}, {HKEY_LOCAL_MACHINE, stage_}, {HKEY_CURRENT_USER, stage_}};
    for (const auto& [hive, stage] : staged) {
      EXPECT_EQ(RegOverridePredefKey(hive, stage), ERROR_SUCCESS);
    }
    const HRESULT result = call(install, GetParam().words);
    for (const auto& [hive, stage] : staged) {
      EXPECT_EQ(RegOverridePredefKey(hive, nullptr), ERROR_SUCCESS);
    }
    return result;
  }

  static RegistryTree classes() { return readTree(HKEY_CURRENT_USER, kStageClasses); }

  // Keys below the classes that belong to the control.
  static std::wstring left() {
    std::wstring found;
    const RegistryTree tree = classes();
    for (const std::wstring& key :
         {kClass, std::wstring(L"Kelvane.KelvaneCtl"), std::wstring(L"Kelvane.KelvaneCtl.1"),
          std::wstring(L"TypeLib\\") + kTypeLibraryId,
          std::wstring(L"Interface\\") + kInterfaceId}) {
      if (tree.contains(kStageClasses + L"\\" + key)) found += key + L"\n";
    }
    return found;
  }

 private:
  HMODULE module_ = nullptr;
  HKEY stage_ = nullptr, classes_ = nullptr;
};

INSTANTIATE_TEST_SUITE_P(For, RefusedRegistration, testing::Values(kMachine, kUser),
                         testing::PrintToStringParamName());

TEST_P(RefusedRegistration, SucceedsWhenNothingIsRefused) {
  EXPECT_EQ(install(TRUE), S_OK);
  EXPECT_NE(left(), L"");
  EXPECT_EQ(install(FALSE), S_OK);
  EXPECT_EQ(left(), L"");
}

TEST_P(RefusedRegistration, OfTheNamesIsReported) {
  refuse(L"Kelvane.KelvaneCtl.1");
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), SELFREG_E_CLASS);
  EXPECT_EQ(difference(before, classes()), "");
}

TEST_P(RefusedRegistration, OfTheClassTakesBackTheNames) {
  refuse(L"CLSID");
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), SELFREG_E_CLASS);
  EXPECT_EQ(difference(before, classes()), "");
}

TEST_P(RefusedRegistration, OfTheTypesTakesBackTheClass) {
  refuse(L"TypeLib");
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), SELFREG_E_TYPELIB);
  EXPECT_EQ(difference(before, classes()), "");
}

// An earlier registration, by another version in another folder, that worked.
class RefusedRepetition : public RefusedRegistration {
 protected:
  void SetUp() override {
    RefusedRegistration::SetUp();
    ASSERT_EQ(install(TRUE), S_OK);
    set(kClass, REG_SZ, L"An older section control");
    set(kClass + L"\\InprocServer32", REG_EXPAND_SZ, L"%ProgramFiles%\\Older\\KelvaneCtl.ocx");
    set(kClass + L"\\Insertable", REG_SZ, L"");
    remove(kClass + L"\\Programmable");
    remove(L"Kelvane.KelvaneCtl\\CurVer");
  }
};

INSTANTIATE_TEST_SUITE_P(For, RefusedRepetition, testing::Values(kMachine, kUser),
                         testing::PrintToStringParamName());

TEST_P(RefusedRepetition, OfTheClassLeavesTheEarlierOne) {
  remove(kClass + L"\\Implemented Categories");
  refuse(kClass + L"\\Implemented Categories");
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), SELFREG_E_CLASS);
  EXPECT_EQ(difference(before, classes()), "");
}

TEST_P(RefusedRepetition, OfTheTypesLeavesTheEarlierOne) {
  remove(std::wstring(L"Interface\\") + kInterfaceId);
  refuse(std::wstring(L"Interface\\") + kInterfaceId);
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), SELFREG_E_TYPELIB);
  EXPECT_EQ(difference(before, classes()), "");
}

TEST_P(RefusedRepetition, OfNothingReplacesTheEarlierOne) {
  const RegistryTree before = classes();
  EXPECT_EQ(install(TRUE), S_OK);
  EXPECT_NE(difference(before, classes()), "");
  EXPECT_EQ(install(FALSE), S_OK);
  EXPECT_EQ(left(), L"");
}

}  // namespace
}  // namespace winetest
