#pragma once

#include <windows.h>

#include <string>

namespace winetest {

inline constexpr wchar_t kProgId[] = L"Kelvane.KelvaneCtl";

// Folders and files of the build, found from where this program lies.
std::wstring programFolder();
std::wstring libraryPath();                       // KelvaneCtl.ocx
std::wstring dataFile(const std::wstring& name);  // beside the program
// A file's text, its lines ending in a line feed; empty when there is no such file.
std::string readFile(const std::wstring& path);

// The control's library, loaded as a file whether it is registered or not.
class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  HRESULT getClassObject(REFCLSID id, REFIID iid, void** answer) const;
  HRESULT canUnloadNow() const { return call("DllCanUnloadNow"); }
  HRESULT registerServer() const { return call("DllRegisterServer"); }
  HRESULT unregisterServer() const { return call("DllUnregisterServer"); }

 private:
  HRESULT call(const char* name) const;
  HMODULE module_;
};

}  // namespace winetest
