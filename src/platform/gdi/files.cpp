#include "platform/files.h"

#include <algorithm>

#include "platform/gdi/busyFiles.h"
#include "platform/gdi/fileNames.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

[[noreturn]] void failReading(const std::string& path, DWORD error) {
  failFile("read", path, reasonOf(error));
}

// Whether a link, or another name that stands for something elsewhere, leads to a file.
bool leadsToFile(const std::wstring& name) {
  const FileHandle file(CreateFileW(name.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.isOpen()) return GetLastError() == ERROR_SHARING_VIOLATION;
  BY_HANDLE_FILE_INFORMATION facts = {};
  return GetFileInformationByHandle(file.get(), &facts) == 0 ||
         (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

bool fileExists(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return false;
  const std::wstring name = systemName(path);
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError() == ERROR_SHARING_VIOLATION;
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return leadsToFile(name);
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string readWholeFile(const std::string& path, std::size_t limit) {
  if (path.empty()) failReading(path, ERROR_PATH_NOT_FOUND);
  if (path.find('\0') != std::string::npos) failReading(path, ERROR_INVALID_NAME);
  const std::wstring name = systemName(path);
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    failFile("read", path, kIsDirectory);
  }
  FileHandle file;
  const DWORD error = tryForAMoment(isHeld, [&]() -> DWORD {
    file = CreateFileW(name.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    return file.isOpen() ? ERROR_SUCCESS : GetLastError();
  });
  if (error != ERROR_SUCCESS) failReading(path, error);
  if (GetFileType(file.get()) != FILE_TYPE_DISK) failFile("read", path, kNotRegular);
  LARGE_INTEGER length = {};
  if (GetFileSizeEx(file.get(), &length) == 0) failReading(path, GetLastError());
  const auto expected = static_cast<std::uint64_t>(length.QuadPart);
  return readToEnd(path, expected, limit, [&](char* to, std::size_t wanted) -> std::size_t {
    constexpr std::size_t kMost = std::size_t{1} << 22;
    DWORD count = 0;
    if (ReadFile(file.get(), to, static_cast<DWORD>(std::min(wanted, kMost)), &count, nullptr) ==
        0) {
      failReading(path, GetLastError());
    }
    return count;
  });
}

}  // namespace platform
