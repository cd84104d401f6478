#include <gtest/gtest.h>
#include <windows.h>

#include "Dispatch.h"
#include "control.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// Names that are no files, or such that few programs can open.
namespace winetest {
namespace {

class OddNames : public testing::Test {
 protected:
  OddNames() { support::makeTinySet(folder_.file("tiny.nc")); }

  std::wstring folder() const { return folder_.path().wstring(); }
  int open(const std::wstring& name) { return object_.call(L"NcFile", {name}).number(); }
  std::string message() { return host::narrow(object_.get(L"ErrorMessage").text()); }
  // That is said, at once; and the next file can be opened.
  void expectRefused(const std::wstring& name) {
    SCOPED_TRACE(host::narrow(name).substr(0, 80));
    EXPECT_EQ(open(name), -1);
    EXPECT_NE(message(), "");
    EXPECT_EQ(object_.call(L"KewFile", {name}).number(), -1);
    EXPECT_EQ(open(folder() + L"\\tiny.nc"), 1) << message();
  }
  void expectOpened(const std::wstring& name) {
    SCOPED_TRACE(host::narrow(name).substr(0, 80));
    ASSERT_NE(CopyFileW((folder() + L"\\tiny.nc").c_str(), name.c_str(), FALSE), 0)
        << GetLastError();
    EXPECT_EQ(open(name), 1) << message();
  }

  support::TempFolder folder_;
  BareControl control_;
  host::Object object_{control_.identity()};
};

TEST_F(OddNames, OfNothing) {
  for (const std::wstring& name :
       {std::wstring(), std::wstring(L"."), std::wstring(L".."), std::wstring(L"\\"),
        std::wstring(L"C:"), std::wstring(L"C:\\"), folder(), folder() + L"\\",
        folder() + L"\\missing.nc", folder() + L"\\missing\\a.nc", folder() + L"\\tiny.nc\\",
        std::wstring(L"*"), std::wstring(L"a|b?.nc"), std::wstring(L"Q:\\none.nc"),
        std::wstring(L"\\\\.\\none"), std::wstring(L"\\\\?\\C:\\none.nc"),
        folder() + L"\\tiny.nc:stream"}) {
    expectRefused(name);
  }
}

TEST_F(OddNames, WithAZeroCharacter) {
  expectRefused(folder() + L"\\tiny.nc" + std::wstring(1, L'\0') + L".nc");
}

TEST_F(OddNames, OfDevices) {
  for (const wchar_t* name : {L"CON", L"NUL", L"PRN", L"AUX", L"COM1", L"LPT1", L"CONIN$",
                              L"nul.nc", L"C:\\NUL", L"\\\\.\\NUL", L"\\\\.\\pipe\\none"}) {
    expectRefused(name);
  }
}

TEST_F(OddNames, OfHalfACharacter) {
  expectRefused(folder() + L"\\\xD800.nc");
  expectRefused(folder() + L"\\\xDC00\xD800");
}

TEST_F(OddNames, LongerThanTheOldLimit) {
  std::wstring deep = L"\\\\?\\" + folder();
  std::wstring plain = folder();
  for (int depth = 0; depth < 5; ++depth) {
    deep += L"\\" + std::wstring(80, L'd');
    plain += L"\\" + std::wstring(80, L'd');
    ASSERT_NE(CreateDirectoryW(deep.c_str(), nullptr), 0);
  }
  expectOpened(deep + L"\\long.nc");
  EXPECT_EQ(open(plain + L"\\long.nc"), 1) << message();
  expectRefused(plain + L"\\missing.nc");
  expectRefused(folder() + L"\\" + std::wstring(40'000, L'x'));
  DeleteFileW((deep + L"\\long.nc").c_str());
  for (int depth = 0; depth < 5; ++depth) {
    RemoveDirectoryW(deep.c_str());
    deep.resize(deep.size() - 81);
  }
}

TEST_F(OddNames, WithBlanksDotsAndShortForms) {
  expectOpened(folder() + L"\\two words.nc");
  expectOpened(folder() + L"\\\u6D77 \u03B8.nc");
  wchar_t shortName[MAX_PATH] = {};
  if (GetShortPathNameW((folder() + L"\\\u6D77 \u03B8.nc").c_str(), shortName, MAX_PATH) > 0) {
    EXPECT_EQ(open(shortName), 1) << message();
  }
  EXPECT_EQ(open(folder() + L"/tiny.nc"), 1) << message();
  EXPECT_EQ(open(folder() + L"\\.\\TINY.NC"), 1) << message();
}

// The folder where relative names begin is taken away.
TEST_F(OddNames, InAFolderThatVanishes) {
  wchar_t before[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, before);
  const std::wstring gone = folder() + L"\\gone";
  ASSERT_NE(CreateDirectoryW(gone.c_str(), nullptr), 0);
  ASSERT_NE(SetCurrentDirectoryW(gone.c_str()), 0);
  // Windows itself does not let it go as long as it is the current one.
  RemoveDirectoryW(gone.c_str());
  expectRefused(L"missing.nc");
  expectRefused(L".\\missing.nc");
  object_.call(L"InitColorKey");
  SetCurrentDirectoryW(before);
}

}  // namespace
}  // namespace winetest
