#include "library.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace winetest {
namespace {

template <class Call>
Call find(HMODULE module, const char* name) {
  const FARPROC found = GetProcAddress(module, name);
  if (found == nullptr) throw std::runtime_error(std::string("not exported: ") + name);
  Call call = nullptr;
  static_assert(sizeof call == sizeof found);
  std::memcpy(&call, &found, sizeof call);
  return call;
}

}  // namespace

std::wstring programFolder() {
  wchar_t path[1024] = {};
  const DWORD length = GetModuleFileNameW(nullptr, path, 1024);
  const std::wstring whole(path, length);
  return whole.substr(0, whole.find_last_of(L'\\'));
}

std::wstring libraryPath() {
  wchar_t path[1024] = {};
  GetFullPathNameW((programFolder() + L"\\..\\..\\KelvaneCtl.ocx").c_str(), 1024, path, nullptr);
  return path;
}

std::wstring dataFile(const std::wstring& name) { return programFolder() + L"\\" + name; }

std::string readFile(const std::wstring& path) {
  std::string text;
  if (std::FILE* file = _wfopen(path.c_str(), L"rb")) {
    char piece[4096];
    while (const std::size_t got = std::fread(piece, 1, sizeof piece, file)) {
      text.append(piece, got);
    }
    std::fclose(file);
  }
  std::erase(text, '\r');
  return text;
}

Library::Library() : module_(LoadLibraryW(libraryPath().c_str())) {
  if (module_ == nullptr) throw std::runtime_error("the control's library does not load");
}

Library::~Library() { FreeLibrary(module_); }

HRESULT Library::getClassObject(REFCLSID id, REFIID iid, void** answer) const {
  using Call = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  return find<Call>(module_, "DllGetClassObject")(id, iid, answer);
}

HRESULT Library::call(const char* name) const {
  using Call = HRESULT(WINAPI*)();
  return find<Call>(module_, name)();
}

}  // namespace winetest
