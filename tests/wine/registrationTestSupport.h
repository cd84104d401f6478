#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "childProcess.h"
#include "library.h"

namespace winetest {

inline constexpr wchar_t kClassId[] = L"{8A6F972D-535F-4438-972A-00CA8732D855}";
inline constexpr wchar_t kTypeLibraryId[] = L"{3033FD37-B089-4B29-9939-F65BFABD91D3}";
inline constexpr wchar_t kInterfaceId[] = L"{5D76F804-BF1E-4262-AD53-165E50A86508}";
inline const std::wstring kClass = std::wstring(L"CLSID\\") + kClassId;

// For everybody, or for the current user.
struct Extent {
  const char* name;
  const wchar_t* options;  // regsvr32's
  const wchar_t* words;    // what DllInstall gets for them
  HKEY hive;
};
inline constexpr const wchar_t* kForUser = L"/n /i:user ";
inline const Extent kMachine = {"Machine", L"", L"", HKEY_LOCAL_MACHINE};
inline const Extent kUser = {"User", kForUser, L"user", HKEY_CURRENT_USER};

inline void PrintTo(const Extent& extent, std::ostream* out) { *out << extent.name; }

// The exit code, 0 for success.
inline unsigned long regsvr32(const std::wstring& options) {
  const Outcome outcome =
      runProgram(L"regsvr32.exe /s " + options + L" \"" + libraryPath() + L"\"");
  EXPECT_TRUE(outcome.ended);
  return outcome.status;
}

inline unsigned long registerFor(const Extent& extent) { return regsvr32(extent.options); }
inline unsigned long unregisterFor(const Extent& extent) {
  return regsvr32(std::wstring(L"/u ") + extent.options);
}

// Nothing of the control is registered before and after the test.
class NothingRegistered : public testing::Test {
 protected:
  void SetUp() override { removeAll(); }
  void TearDown() override { removeAll(); }

 private:
  static void removeAll() {
    EXPECT_EQ(unregisterFor(kMachine), 0U);
    EXPECT_EQ(unregisterFor(kUser), 0U);
  }
};

}  // namespace winetest
