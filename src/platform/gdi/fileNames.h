#pragma once

#include <windows.h>

#include <string>

namespace platform {

// A UTF-8 file name as the system's calls take it: absolute, and in the form without a limit when
// it is long. Names of parts beside the file are still within the limit when the file's is.
std::wstring systemName(const std::string& path);

// The system's text of an error in UTF-8, without the full stop and line end that it closes with.
std::string reasonOf(DWORD error);

// An open file, closed at the end of the scope.
class FileHandle {
 public:
  explicit FileHandle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  ~FileHandle() { close(); }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  FileHandle& operator=(HANDLE handle) {
    close();
    handle_ = handle;
    return *this;
  }

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  // False when closing failed.
  bool close() {
    const HANDLE closed = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return closed == INVALID_HANDLE_VALUE || CloseHandle(closed) != 0;
  }

 private:
  HANDLE handle_;
};

// Other programs may go on doing what they do with a file that is open here.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace platform
