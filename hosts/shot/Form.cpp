#include "Form.h"

#include <ole2.h>

#include <algorithm>
#include <cstring>

#include "ComOwner.h"

namespace host {
namespace {

constexpr wchar_t kFormClass[] = L"KelvaneForm";
constexpr wchar_t kSiteClass[] = L"KelvaneFormSite";

// The container comes with Windows and has no import library everywhere.
struct Container {
  using InitCall = BOOL(WINAPI*)();
  using CreateCall = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**);
  using GetCall = HRESULT(WINAPI*)(HWND, IUnknown**);
  InitCall init = nullptr;
  CreateCall create = nullptr;
  GetCall get = nullptr;
};

template <class Call>
void find(HMODULE module, const char* name, Call& call) {
  const FARPROC found = GetProcAddress(module, name);
  static_assert(sizeof call == sizeof found);
  std::memcpy(&call, &found, sizeof call);
}

const Container& container() {
  static const Container all = [] {
    Container calls;
    const HMODULE module = LoadLibraryW(L"atl.dll");
    if (module == nullptr) throw HostError(E_FAIL, "no control container: atl.dll is missing");
    find(module, "AtlAxWinInit", calls.init);
    find(module, "AtlAxCreateControl", calls.create);
    find(module, "AtlAxGetControl", calls.get);
    if (!calls.init || !calls.create || !calls.get || !calls.init()) {
      throw HostError(E_FAIL, "no control container: atl.dll is of another kind");
    }
    return calls;
  }();
  return all;
}

void registerClass(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = name;
  RegisterClassW(&windowClass);
}

void drawInto(IUnknown& control, HDC dc, int width, int height) {
  const RECT bounds = {0, 0, width, height};
  require(OleDraw(&control, DVASPECT_CONTENT, dc, &bounds), "drawing the control");
}

}  // namespace

Form::Form(const std::wstring& progId, int width, int height) {
  container();
  registerClass(kFormClass, procedure);
  registerClass(kSiteClass, DefWindowProcW);
  const HINSTANCE module = GetModuleHandleW(nullptr);
  CreateWindowExW(WS_EX_TOOLWINDOW, kFormClass, L"Kelvane", WS_POPUP | WS_CLIPCHILDREN, 0, 0,
                  width, height, nullptr, nullptr, module, this);
  if (window_ == nullptr) throw HostError(E_FAIL, "no windows here");
  site_ = CreateWindowExW(0, kSiteClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, width,
                          height, window_, nullptr, module, nullptr);
  ShowWindow(window_, SW_SHOWNOACTIVATE);
  try {
    attach(progId);
  } catch (...) {
    DestroyWindow(window_);
    throw;
  }
  pump();
}

void Form::attach(const std::wstring& progId) {
  const std::string name = narrow(progId);
  ComOwner<IUnknown> holder, control;
  require(container().create(progId.c_str(), site_, nullptr, holder.receive()),
          "cannot make " + name);
  require(container().get(site_, control.receive()), "cannot make " + name);
  if (!control) throw HostError(E_FAIL, "cannot make " + name);
  control_ = std::make_unique<Object>(control.get());
}

Form::~Form() {
  control_.reset();
  if (window_ != nullptr) DestroyWindow(window_);
}

void Form::resize(int width, int height) {
  SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  pump();
}

void Form::pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

Picture Form::shoot() const {
  RECT area = {};
  GetClientRect(window_, &area);
  return takePicture(area.right, area.bottom, [&](HDC dc) {
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    // What lies outside the screen has no pixels; the control's window prints it instead.
    if (area.right > width || area.bottom > height) printControl(dc);
    const HDC screen = GetDC(window_);
    BitBlt(dc, 0, 0, std::min<int>(area.right, width), std::min<int>(area.bottom, height), screen,
           0, 0, SRCCOPY);
    ReleaseDC(window_, screen);
  });
}

void Form::printControl(HDC dc) const {
  ComOwner<IOleWindow> place;
  HWND window = nullptr;
  require(control_->dispatch()->QueryInterface(IID_IOleWindow, place.receiveAny()),
          "the control has no window");
  require(place->GetWindow(&window), "the control has no window");
  SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
}

Picture Form::oleDraw() const {
  RECT area = {};
  GetClientRect(window_, &area);
  return takePicture(area.right, area.bottom, [&](HDC dc) {
    drawInto(*control_->dispatch(), dc, area.right, area.bottom);
  });
}

LRESULT CALLBACK Form::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* created = static_cast<Form*>(reinterpret_cast<CREATESTRUCTW*>(longer)->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form != nullptr && message == WM_SIZE && form->site_ != nullptr) {
    MoveWindow(form->site_, 0, 0, LOWORD(longer), HIWORD(longer), TRUE);
  }
  return DefWindowProcW(window, message, wide, longer);
}

void setExtent(Object& control, int width, int height) {
  ComOwner<IOleObject> object;
  require(control.dispatch()->QueryInterface(IID_IOleObject, object.receiveAny()),
          "the control has no extent");
  const HDC screen = GetDC(nullptr);
  SIZEL extent = {MulDiv(width, 2540, GetDeviceCaps(screen, LOGPIXELSX)),
                  MulDiv(height, 2540, GetDeviceCaps(screen, LOGPIXELSY))};
  ReleaseDC(nullptr, screen);
  require(object->SetExtent(DVASPECT_CONTENT, &extent), "sizing the control");
}

Picture drawWithoutForm(Object& control, int width, int height) {
  return takePicture(width, height,
                     [&](HDC dc) { drawInto(*control.dispatch(), dc, width, height); });
}

}  // namespace host
