#include "container/controlFactory.h"

#include <cstdio>
#include <vector>

#include "Dispatch.h"
#include "ids.h"

namespace form {
namespace {

std::wstring programPath() {
  std::vector<wchar_t> path(MAX_PATH);
  while (GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())) ==
         path.size()) {
    path.resize(2 * path.size());
  }
  return path.data();
}

// While it lives, the control beside the program comes before the registered one. The manifest is
// a resource of its own: named in the program's manifest, a control that is not there would keep
// the program from starting at all.
class BesideProgram {
 public:
  BesideProgram() {
    const std::wstring path = programPath();
    const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
    ACTCTXW wanted = {};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = path.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(IDR_BESIDE_MANIFEST);
    wanted.lpAssemblyDirectory = folder.c_str();
    context_ = CreateActCtxW(&wanted);
    active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
  }
  ~BesideProgram() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
  BesideProgram(const BesideProgram&) = delete;
  BesideProgram& operator=(const BesideProgram&) = delete;
  bool active() const { return active_; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

HRESULT create(host::ComOwner<IUnknown>& control) {
  CLSID id = {};
  const HRESULT found = CLSIDFromProgID(kProgId, &id);
  if (FAILED(found)) return found;
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.receiveAny());
}

}  // namespace

void makeControl(host::ComOwner<IUnknown>& control) {
  {
    const BesideProgram beside;
    if (beside.active() && SUCCEEDED(create(control))) return;
  }
  host::require(create(control), host::narrow(kProgId));
}

std::wstring howToGetControl(HRESULT failure) {
  const std::wstring bits = std::to_wstring(kBits) + L"-bit";
  wchar_t code[16] = {};
  std::swprintf(code, 16, L"%08lX", static_cast<unsigned long>(failure));
  BOOL wow = FALSE;
  const bool on64 = kBits == 64 || (IsWow64Process(GetCurrentProcess(), &wow) && wow != FALSE);
  const std::wstring regsvr32 = on64 && kBits == 32 ? L"%windir%\\SysWOW64\\regsvr32.exe"
                                                    : L"%windir%\\System32\\regsvr32.exe";
  return L"The section control could not be started (error " + std::wstring(code) +
         L").\n\nThis is a " + bits + L" program and needs the " + bits +
         L" KelvaneCtl.ocx. Do one of these and start it again:\n\n" +
         L"\x2022  put KelvaneCtl.ocx and KelvaneCtl.manifest of the " + bits +
         L" version beside KelvaneHost.exe, or\n" +
         L"\x2022  register the control for yourself:\n     " + regsvr32 +
         L" /n /i:user KelvaneCtl.ocx\n" +
         L"\x2022  or for everybody, in an administrator's prompt:\n     " + regsvr32 +
         L" KelvaneCtl.ocx";
}

}  // namespace form
