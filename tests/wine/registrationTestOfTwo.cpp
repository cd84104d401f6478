// The libraries for both kinds of processes on one 64-bit Windows. What they register they share in
// part: names and types are common, classes and interfaces are apart. This is a 64-bit program,
// which sees all of it.
#include <gtest/gtest.h>
#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <tuple>

#include "Dispatch.h"
#include "childProcess.h"
#include "library.h"
#include "registrationTestSupport.h"
#include "registryTree.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

static_assert(sizeof(void*) == 8);

using Folder = UINT(WINAPI*)(LPWSTR, UINT);

// One of the two builds, with the programs of Windows that match it.
struct Bitness {
  const char* name;
  const wchar_t* platform;  // of a type library
  REGSAM view;
  Folder systemFolder;
  std::wstring build;

  std::wstring library() const { return build + L"\\KelvaneCtl.ocx"; }
  std::wstring program(const wchar_t* file) const {
    wchar_t folder[MAX_PATH] = {};
    systemFolder(folder, MAX_PATH);
    return std::wstring(folder) + L"\\" + file;
  }
};

std::wstring buildOf32() {
  std::wstring path = host::wide("Z:" KELVANE_WIN32_DIR);
  std::replace(path.begin(), path.end(), L'/', L'\\');
  return path;
}

std::wstring buildOf64() {
  const std::wstring path = libraryPath();
  return path.substr(0, path.find_last_of(L'\\'));
}

const Bitness k32 = {"32", L"win32", KEY_WOW64_32KEY, GetSystemWow64DirectoryW, buildOf32()};
const Bitness k64 = {"64", L"win64", KEY_WOW64_64KEY, GetSystemDirectoryW, buildOf64()};

void PrintTo(const Bitness& bitness, std::ostream* out) { *out << bitness.name; }

void regsvr32Of(const Bitness& its, const std::wstring& options) {
  const Outcome outcome = runProgram(L"\"" + its.program(L"regsvr32.exe") + L"\" /s " + options +
                                     L"\"" + its.library() + L"\"");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.status, 0U) << its.name;
}

std::wstring read(const Bitness& its, const std::wstring& key) {
  HKEY opened = nullptr;
  const std::wstring path = L"Software\\Classes\\" + key;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ | its.view, &opened) !=
      ERROR_SUCCESS) {
    return L"(absent)";
  }
  wchar_t text[1024] = {};
  DWORD size = sizeof text;
  const LSTATUS status =
      RegGetValueW(opened, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
  RegCloseKey(opened);
  return status == ERROR_SUCCESS ? std::wstring(text) : L"(absent)";
}

RegistryTree everything() { return readTree(HKEY_LOCAL_MACHINE, L"Software\\Classes"); }

class RegistrationOfTwo
    : public testing::TestWithParam<std::tuple<Bitness, Bitness, Bitness, Bitness>> {
 protected:
  // The script host writes to the registry itself when it runs for the first time.
  static void SetUpTestSuite() {
    for (const Bitness& its : {k32, k64}) runProgram(script(its, L""));
  }
  void SetUp() override {
    removeBoth();
    support::makeTinySet(folder_.file("tiny.nc"));
  }
  void TearDown() override { removeBoth(); }

  static void removeBoth() {
    for (const Bitness& its : {k32, k64}) regsvr32Of(its, L"/u ");
  }

  // What a script and a form of that bitness get.
  void expectToBeComplete(const Bitness& its) const {
    EXPECT_EQ(host::narrow(read(its, kClass + L"\\InprocServer32")), host::narrow(its.library()));
    EXPECT_EQ(host::narrow(read(
                  its, std::wstring(L"TypeLib\\") + kTypeLibraryId + L"\\1.0\\0\\" + its.platform)),
              host::narrow(its.library()));
    // Common to both. Wine shares it with 32-bit programs, but not through their view.
    EXPECT_EQ(host::narrow(read(k64, L"Kelvane.KelvaneCtl\\CLSID")), host::narrow(kClassId));
    EXPECT_EQ(host::narrow(read(its, std::wstring(L"Interface\\") + kInterfaceId)), "_KelvaneCtl");
    expectScriptToRun(its);
    expectFormToDraw(its);
  }

  void expectNothingOf(const Bitness& its) const {
    EXPECT_EQ(read(its, kClass), L"(absent)");
    EXPECT_EQ(read(its, std::wstring(L"Interface\\") + kInterfaceId), L"(absent)");
    EXPECT_EQ(read(its, std::wstring(L"TypeLib\\") + kTypeLibraryId + L"\\1.0\\0\\" + its.platform),
              L"(absent)");
  }

 private:
  static std::wstring script(const Bitness& its, const std::wstring& folder) {
    return L"\"" + its.program(L"cscript.exe") + L"\" //nologo \"" +
           dataFile(L"scripts\\members.vbs") + L"\" \"" + folder + L"\"";
  }

  void expectScriptToRun(const Bitness& its) const {
    const Outcome outcome = runProgram(script(its, folder_.path().wstring()));
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.status, 0U) << its.name;
    EXPECT_EQ(outcome.output, readFile(dataFile(L"scripts\\members.vbs.expected"))) << its.name;
  }

  void expectFormToDraw(const Bitness& its) const {
    const std::wstring picture = folder_.path().wstring() + L"\\" + its.platform + L".bmp";
    const Outcome outcome =
        runProgram(L"\"" + its.build + L"\\kelvane-shot.exe\" draw \"" + folder_.path().wstring() +
                   L"\\tiny.nc\" temp \"354.5,-1 354.5,0.4\" 1 320x240 \"" + picture + L"\"");
    EXPECT_EQ(outcome.status, 0U) << its.name << ": " << outcome.output;
    EXPECT_GT(readFile(picture).size(), 1000U) << its.name;
    DeleteFileW(picture.c_str());
  }

  support::TempFolder folder_;
};

// First registered, second registered, first removed, last removed.
INSTANTIATE_TEST_SUITE_P(InEveryOrder, RegistrationOfTwo,
                         testing::Values(std::tuple(k32, k64, k32, k64),
                                         std::tuple(k32, k64, k64, k32),
                                         std::tuple(k64, k32, k32, k64),
                                         std::tuple(k64, k32, k64, k32)));

TEST_P(RegistrationOfTwo, LeavesEachCompleteWithoutTheOther) {
  const auto& [first, second, leaving, staying] = GetParam();
  const RegistryTree before = everything();
  regsvr32Of(staying, L"");
  const RegistryTree alone = everything();
  EXPECT_NE(difference(before, alone), "");
  regsvr32Of(staying, L"/u ");
  ASSERT_EQ(difference(before, everything()), "");

  regsvr32Of(first, L"");
  expectNothingOf(second);
  regsvr32Of(second, L"");
  for (const Bitness& its : {k32, k64}) expectToBeComplete(its);
  regsvr32Of(leaving, L"/u ");
  expectNothingOf(leaving);
  EXPECT_EQ(difference(alone, everything()), "");
  expectToBeComplete(staying);
  regsvr32Of(staying, L"/u ");
  expectNothingOf(staying);
  EXPECT_EQ(difference(before, everything()), "");
}

}  // namespace
}  // namespace winetest
