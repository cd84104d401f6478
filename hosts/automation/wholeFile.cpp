#include "wholeFile.h"

#include <windows.h>

#include <algorithm>

#include "Dispatch.h"

namespace host {
namespace {

constexpr std::size_t kPiece = 1 << 20;  // what is handed to the system at a time

// What the system says about its last failure, in the user's language, without the end of the
// sentence, as every failure is told.
[[noreturn]] void fail(const std::string& what) {
  const DWORD code = GetLastError();
  wchar_t text[512] = {};
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                     text, 512, nullptr);
  std::wstring reason(text, length);
  reason.erase(reason.find_last_not_of(L"\r\n .") + 1);
  if (reason.empty()) reason = L"error " + std::to_wstring(code);
  throw HostError(HRESULT_FROM_WIN32(code), what + ": " + narrow(reason));
}

class File {
 public:
  File(const std::wstring& path, DWORD access, DWORD sharing, DWORD disposition)
      : handle_(CreateFileW(path.c_str(), access, sharing, nullptr, disposition,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool open() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  void close() {
    if (open()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

bool writeAll(HANDLE file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), wanted, &written, nullptr)) return false;
    bytes = bytes.subspan(written);
  }
  return FlushFileBuffers(file);
}

}  // namespace

void writeWhole(const std::wstring& path, std::span<const std::byte> bytes) {
  const std::string what = "cannot write " + narrow(path);
  const std::wstring part = path + L"." + std::to_wstring(GetCurrentProcessId()) + L".part";
  File file(part, GENERIC_WRITE, 0, CREATE_ALWAYS);
  if (!file.open()) fail(what);
  bool done = writeAll(file.get(), bytes);
  DWORD code = GetLastError();
  file.close();
  if (done) {
    done = MoveFileExW(part.c_str(), path.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    code = GetLastError();
  }
  if (done) return;
  DeleteFileW(part.c_str());
  SetLastError(code);
  fail(what);
}

std::string readWhole(const std::wstring& path, std::size_t most) {
  const std::string what = "cannot read " + narrow(path);
  const File file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  OPEN_EXISTING);
  if (!file.open()) fail(what);
  std::string text;
  while (true) {
    const std::size_t before = text.size();
    text.resize(before + kPiece);
    DWORD got = 0;
    if (!ReadFile(file.get(), text.data() + before, kPiece, &got, nullptr)) fail(what);
    text.resize(before + got);
    if (got == 0) return text;
    if (text.size() > most) throw HostError(E_FAIL, what + ": it is too large");
  }
}

}  // namespace host
