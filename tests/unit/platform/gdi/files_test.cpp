#include "platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>
// Needs the header above.
#include <sddl.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "platform/gdi/fileNames.h"
#include "platform/gdi/wideText.h"
#include "support/TempFolder.h"
#include "unit/platform/sharedFile.h"

namespace {

namespace fs = std::filesystem;
using platform::reasonOf;
using support::TempFolder;

std::string failureOfWriting(const std::string& path) {
  try {
    platform::writeWholeFile(path, "new");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

std::string failureOfReading(const std::string& path) {
  try {
    platform::readWholeFile(path, 100);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

std::wstring wideName(const std::string& path) { return platform::toWide(path); }

HANDLE openAs(const std::string& path, DWORD access, DWORD share) {
  return CreateFileW(wideName(path).c_str(), access, share, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::wstring permissionsOf(const std::string& path) {
  std::array<std::byte, 4'000> description;
  DWORD size = 0;
  wchar_t* text = nullptr;
  if (GetFileSecurityW(wideName(path).c_str(), DACL_SECURITY_INFORMATION, description.data(),
                       description.size(), &size) == 0 ||
      ConvertSecurityDescriptorToStringSecurityDescriptorW(
          description.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr) == 0) {
    return {};
  }
  std::wstring permissions = text;
  LocalFree(text);
  return permissions;
}

TEST(ReasonOf, IsTheSystemsTextWithoutItsEnd) {
  for (const auto code : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_DISK_FULL}) {
    const auto error = static_cast<DWORD>(code);
    const std::string reason = reasonOf(error);
    ASSERT_FALSE(reason.empty());
    EXPECT_EQ(reason.find_first_of("\r\n"), std::string::npos) << reason;
    EXPECT_NE(reason.back(), '.') << reason;
    EXPECT_NE(reason.back(), ' ') << reason;
    EXPECT_NE(reason, "Error " + std::to_string(error));
  }
  EXPECT_EQ(reasonOf(0x2FFFFFFF), "Error 805306367");
}

TEST(SystemName, IsAbsoluteAndWithoutALimitWhenLong) {
  const std::string deep(230, 'd');
  struct Row {
    std::string path;
    std::wstring expected;
  };
  const Row rows[] = {
      {"C:\\a/b\\..\\c.kew", L"C:\\a\\c.kew"},
      {"C:\\" + deep + "/x", L"\\\\?\\C:\\" + std::wstring(230, L'd') + L"\\x"},
      {"\\\\server\\share\\" + deep, L"\\\\?\\UNC\\server\\share\\" + std::wstring(230, L'd')},
      {"\\\\?\\C:\\" + deep, L"\\\\?\\C:\\" + std::wstring(230, L'd')},
      {"\\\\.\\pipe\\" + deep, L"\\\\.\\pipe\\" + std::wstring(230, L'd')}};
  for (const Row& row : rows) EXPECT_EQ(platform::systemName(row.path), row.expected) << row.path;
}

TEST(WholeFileOnWindows, PathsMayBeLongerThanTheOldLimit) {
  const TempFolder folder;
  std::wstring name = L"\\\\?\\" + folder.path().wstring();
  std::string path = support::nameOf(folder.path());
  for (int depth = 0; depth < 6; ++depth) {
    name += L"\\" + std::wstring(100, L'd');
    path += "/" + std::string(100, 'd');
    ASSERT_NE(CreateDirectoryW(name.c_str(), nullptr), 0) << GetLastError();
  }
  path += "/./file \xC3\xA9.kew";
  for (const char* text : {"new", "replaced"}) {
    platform::writeWholeFile(path, text);
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(platform::readWholeFile(path, 100), text);
  }
  EXPECT_NE(DeleteFileW((name + L"\\file \u00E9.kew").c_str()), 0);
  for (int depth = 0; depth < 6; ++depth) {
    ASSERT_NE(RemoveDirectoryW(name.c_str()), 0) << GetLastError();
    name.resize(name.size() - 101);
  }
}

TEST(WholeFileOnWindows, AReplacedFileKeepsItsAttributes) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  const DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
  ASSERT_NE(SetFileAttributesW(wideName(path).c_str(), hidden), 0);
  ASSERT_EQ(GetFileAttributesW(wideName(path).c_str()), hidden);
  platform::writeWholeFile(path, "new");
  EXPECT_EQ(GetFileAttributesW(wideName(path).c_str()), hidden);
  EXPECT_EQ(platform::readWholeFile(path, 100), "new");
}

TEST(WholeFileOnWindows, AReplacedFileKeepsItsPermissions) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew"), fresh = folder.file("fresh");
  platform::writeWholeFile(path, "old");
  platform::writeWholeFile(fresh, "");
  PSECURITY_DESCRIPTOR everybody = nullptr;
  ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorW(
                L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &everybody, nullptr),
            0);
  ASSERT_NE(SetFileSecurityW(wideName(path).c_str(), DACL_SECURITY_INFORMATION, everybody), 0);
  LocalFree(everybody);
  const std::wstring before = permissionsOf(path);
  ASSERT_FALSE(before.empty());
  ASSERT_NE(before, permissionsOf(fresh));
  platform::writeWholeFile(path, "new");
  EXPECT_EQ(permissionsOf(path), before);
}

TEST(WholeFileOnWindows, AFileThatAnotherHoldsIsNamedSo) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  const std::string busy = "\": " + reasonOf(ERROR_SHARING_VIOLATION);
  for (const DWORD share :
       {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    const platform::FileHandle held(openAs(path, GENERIC_READ, share));
    ASSERT_TRUE(held.isOpen());
    EXPECT_EQ(failureOfWriting(path), "Cannot write \"" + path + busy) << share;
    EXPECT_EQ(failureOfReading(path), share == 0 ? "Cannot read \"" + path + busy : "") << share;
  }
  EXPECT_EQ(platform::readWholeFile(path, 100), "old");
  EXPECT_EQ(folder.entries(), 1);
}

// The system decides whether a file that is open for any use can be replaced.
TEST(WholeFileOnWindows, AFileThatIsOpenForSharingIsReplacedOrNamed) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  const platform::FileHandle held(openAs(path, GENERIC_READ, platform::kShareAll));
  ASSERT_TRUE(held.isOpen());
  const std::string failure = failureOfWriting(path);
  if (!failure.empty()) {
    EXPECT_EQ(failure, "Cannot write \"" + path + "\": " + reasonOf(ERROR_SHARING_VIOLATION));
  }
  EXPECT_EQ(platform::readWholeFile(path, 100), failure.empty() ? "new" : "old");
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WholeFileOnWindows, AFileThatAnotherHoldsForAMomentIsWaitedFor) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  platform::FileHandle held(openAs(path, GENERIC_READ, FILE_SHARE_READ));
  ASSERT_TRUE(held.isOpen());
  std::thread scanner([&] {
    Sleep(50);
    held.close();
  });
  EXPECT_EQ(failureOfWriting(path), "");
  scanner.join();
  EXPECT_EQ(platform::readWholeFile(path, 100), "new");
  held = openAs(path, GENERIC_READ, 0);
  ASSERT_TRUE(held.isOpen());
  scanner = std::thread([&] {
    Sleep(50);
    held.close();
  });
  EXPECT_EQ(failureOfReading(path), "");
  scanner.join();
}

TEST(WholeFileOnWindows, WritersAndReadersOfOneFileNeverMix) {
  const TempFolder folder;
  const std::string path = folder.file("shared");
  const support::SharedFile result = support::shareFile(path, 20);
  EXPECT_GT(result.written, 0);
  EXPECT_GT(result.read, 1);
  EXPECT_EQ(result.mixed, 0);
  // A file that another one holds open may be impossible to replace, and to read meanwhile.
  const std::string busy = "\"" + path + "\": " + reasonOf(ERROR_SHARING_VIOLATION);
  for (const std::string& failure : result.writeFailures) {
    EXPECT_EQ(failure, "Cannot write " + busy);
  }
  for (const std::string& failure : result.readFailures) EXPECT_EQ(failure, "Cannot read " + busy);
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WholeFileOnWindows, FailuresNameTheFileAndTheReason) {
  const TempFolder folder;
  platform::writeWholeFile(folder.file("protected"), "old");
  ASSERT_NE(SetFileAttributesW(wideName(folder.file("protected")).c_str(), FILE_ATTRIBUTE_READONLY),
            0);
  struct Row {
    std::string path, writing, reading;
  };
  const Row rows[] = {
      {folder.file("no/such/folder"), reasonOf(ERROR_PATH_NOT_FOUND),
       reasonOf(ERROR_PATH_NOT_FOUND)},
      {folder.file("protected"), reasonOf(ERROR_ACCESS_DENIED), ""},
      {support::nameOf(folder.path()), "Is a directory", "Is a directory"},
      {std::string("a\0b", 3), reasonOf(ERROR_INVALID_NAME), reasonOf(ERROR_INVALID_NAME)},
      {"NUL", "", "Not a regular file"},
      {"", reasonOf(ERROR_PATH_NOT_FOUND), reasonOf(ERROR_PATH_NOT_FOUND)}};
  for (const Row& row : rows) {
    const std::string name = "\"" + std::string(row.path.c_str()) + "\": ";
    EXPECT_EQ(failureOfWriting(row.path),
              row.writing.empty() ? "" : "Cannot write " + name + row.writing);
    EXPECT_EQ(failureOfReading(row.path),
              row.reading.empty() ? "" : "Cannot read " + name + row.reading);
  }
  SetFileAttributesW(wideName(folder.file("protected")).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(failureOfReading(folder.file("missing")),
            "Cannot read \"" + folder.file("missing") + "\": " + reasonOf(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(folder.entries(), 1);
}

}  // namespace
