#include "platform/gdi/busyFiles.h"
#include "platform/gdi/fileNames.h"
// Needs windows.h before it.
#include <aclapi.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/gdi/wideText.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

// Results of the steps below: an error of the system, or none.
constexpr DWORD kNoError = ERROR_SUCCESS;

[[noreturn]] void failWriting(const std::string& path, DWORD error) {
  failFile("write", path, reasonOf(error));
}

DWORD writeAll(HANDLE file, std::string_view contents) {
  constexpr std::size_t kMost = std::size_t{1} << 22;
  while (!contents.empty()) {
    DWORD written = 0;
    const auto length = static_cast<DWORD>(std::min(contents.size(), kMost));
    if (WriteFile(file, contents.data(), length, &written, nullptr) == 0) return GetLastError();
    if (written == 0) return ERROR_WRITE_FAULT;
    contents.remove_prefix(written);
  }
  return kNoError;
}

// Some file systems have nothing to force to a disk.
DWORD forceToDisk(HANDLE file) {
  if (FlushFileBuffers(file) != 0) return kNoError;
  const DWORD error = GetLastError();
  return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ? kNoError : error;
}

// Whether a file may be written and replaced: its permissions, and nobody who holds it.
DWORD checkReplaceable(const std::wstring& name) {
  return tryForAMoment(isHeldOrRefused, [&] {
    const FileHandle file(CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.isOpen() ? kNoError : GetLastError();
  });
}

// Puts in place of a link's name where the link leads to.
DWORD followLink(std::wstring& name) {
  const FileHandle file(CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.isOpen()) return GetLastError();
  const DWORD room = GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
  if (room == 0) return GetLastError();
  std::wstring target(room, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.get(), target.data(), room, FILE_NAME_NORMALIZED);
  if (length == 0) return GetLastError();
  // It has got a longer name meanwhile.
  if (length >= room) return ERROR_SHARING_VIOLATION;
  target.resize(length);
  name = target;
  return kNoError;
}

// The facts of a file, of the one that a link leads to when the name is a link's; then the name
// becomes that of the file.
DWORD lookUp(std::wstring& name, WIN32_FILE_ATTRIBUTE_DATA& facts) {
  const auto look = [&] {
    return GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &facts) != 0 ? kNoError
                                                                                  : GetLastError();
  };
  DWORD error = look();
  if (error != kNoError || (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return error;
  }
  error = followLink(name);
  return error == kNoError ? look() : error;
}

// Lets everybody do with one file what he may do with another, where the file system knows who may
// do what. What both inherit from their folder stays inherited.
void copyPermissions(const std::wstring& from, HANDLE to) {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR description = nullptr;
  if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                            nullptr, &list, nullptr, &description) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  GetSecurityDescriptorControl(description, &control, &revision);
  const bool isProtected = (control & SE_DACL_PROTECTED) != 0;
  SetSecurityInfo(to, SE_FILE_OBJECT,
                  DACL_SECURITY_INFORMATION | (isProtected ? PROTECTED_DACL_SECURITY_INFORMATION
                                                           : UNPROTECTED_DACL_SECURITY_INFORMATION),
                  nullptr, nullptr, list, nullptr);
  LocalFree(description);
}

// A new file beside the target that becomes the target or goes. Moving it there is one step, unlike
// the system's own replacing of files, which can end with neither of them in place; but what
// belongs to the old file has to be taken over here.
class Part {
 public:
  explicit Part(const std::wstring& target) : target_(target), file_(create()) {}
  ~Part() {
    file_.close();
    if (created_) DeleteFileW(name_.c_str());
  }
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;

  // With the date of creation of the file that will be replaced, if any. Nobody else opens the part
  // before it has that file's permissions.
  DWORD fill(std::string_view contents, const FILETIME* created) {
    if (!created_) return error_;
    if (created != nullptr) {
      copyPermissions(target_, file_.get());
      SetFileTime(file_.get(), created, nullptr, nullptr);
    }
    DWORD error = writeAll(file_.get(), contents);
    if (error == kNoError) error = forceToDisk(file_.get());
    if (!file_.close() && error == kNoError) error = GetLastError();
    return error;
  }

  // With attributes like those of the file that was there, if any; to be archived again.
  DWORD become(DWORD attributes, NameForced nameForced) {
    constexpr DWORD kKept =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    SetFileAttributesW(name_.c_str(), (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE);
    const DWORD how = MOVEFILE_REPLACE_EXISTING |
                      (nameForced == NameForced::Now ? DWORD{MOVEFILE_WRITE_THROUGH} : DWORD{0});
    const DWORD error = tryForAMoment(isHeldOrRefused, [&] {
      return MoveFileExW(name_.c_str(), target_.c_str(), how) != 0 ? kNoError : GetLastError();
    });
    if (error == kNoError) created_ = false;
    return error;
  }

 private:
  HANDLE create() {
    const std::size_t folder = target_.find_last_of(L"\\/:") + 1;
    // A server may let files be made whose permissions only others set.
    DWORD access = GENERIC_WRITE | READ_CONTROL | WRITE_DAC;
    for (;;) {
      name_ = target_.substr(0, folder) + toWide(nameOfPart(GetCurrentProcessId()));
      const HANDLE file = CreateFileW(name_.c_str(), access, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
      created_ = file != INVALID_HANDLE_VALUE;
      error_ = created_ ? kNoError : GetLastError();
      if (error_ == ERROR_ACCESS_DENIED && access != GENERIC_WRITE) {
        access = GENERIC_WRITE;
      } else if (error_ != ERROR_FILE_EXISTS) {
        return file;
      }
      // A program that was ended may have left a file of this name; then the next one is tried.
    }
  }

  std::wstring target_, name_;
  bool created_ = false;
  DWORD error_ = kNoError;
  FileHandle file_;
};

// Writes a device or pipe; false when the name stands for none.
bool writtenStraight(const std::string& path, const std::wstring& name, std::string_view contents) {
  if (!name.starts_with(L"\\\\.\\")) return false;
  FileHandle file(CreateFileW(name.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.isOpen()) failWriting(path, GetLastError());
  if (GetFileType(file.get()) == FILE_TYPE_DISK) return false;
  const DWORD error = writeAll(file.get(), contents);
  if (error != kNoError) failWriting(path, error);
  return true;
}

}  // namespace

void writeWholeFile(const std::string& path, std::string_view contents, NameForced nameForced) {
  if (path.empty()) failWriting(path, ERROR_PATH_NOT_FOUND);
  if (path.find('\0') != std::string::npos) failWriting(path, ERROR_INVALID_NAME);
  std::wstring target = systemName(path);
  if (writtenStraight(path, target, contents)) return;
  WIN32_FILE_ATTRIBUTE_DATA old = {};
  DWORD error = lookUp(target, old);
  const bool replaces = error == kNoError;
  // A link that leads nowhere is something, and would itself be replaced.
  const bool isLink = (old.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!replaces && (error != ERROR_FILE_NOT_FOUND || isLink)) failWriting(path, error);
  if (replaces) {
    const DWORD attributes = old.dwFileAttributes;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) failFile("write", path, kIsDirectory);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) failWriting(path, ERROR_ACCESS_DENIED);
    error = checkReplaceable(target);
    if (error != kNoError) failWriting(path, error);
  }
  Part part(target);
  error = part.fill(contents, replaces ? &old.ftCreationTime : nullptr);
  if (error == kNoError) error = part.become(old.dwFileAttributes, nameForced);
  // It could be replaced, so whoever keeps it from that has it open.
  if (replaces && error == ERROR_ACCESS_DENIED) error = ERROR_SHARING_VIOLATION;
  if (error != kNoError) failWriting(path, error);
}

}  // namespace platform
