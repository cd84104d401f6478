// The control used from its manifest alone, without any registration.
#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <cstdio>

#include "ComOwner.h"
#include "Dispatch.h"
#include "registrationTestSupport.h"

namespace winetest {
namespace {

constexpr wchar_t kFolder[] = L"manifest-host";

// A program's folder as one is shipped: its own manifest, which names the control's as an assembly
// that it depends on, and beside it the control with its manifest.
class ManifestHost : public NothingRegistered {
 protected:
  void SetUp() override {
    NothingRegistered::SetUp();
    folder_ = programFolder() + L"\\" + kFolder;
    CreateDirectoryW(folder_.c_str(), nullptr);
    const std::wstring built = libraryPath().substr(0, libraryPath().find_last_of(L'\\'));
    for (const wchar_t* file : {L"\\KelvaneCtl.ocx", L"\\KelvaneCtl.manifest"}) {
      ASSERT_TRUE(CopyFileW((built + file).c_str(), (folder_ + file).c_str(), FALSE));
    }
    std::FILE* file = _wfopen((folder_ + L"\\host.manifest").c_str(), L"wb");
    ASSERT_NE(file, nullptr);
    std::fputs(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
        "<assemblyIdentity type=\"win32\" name=\"Host\" version=\"1.0.0.0\"/>\n"
        "<dependency><dependentAssembly>\n"
        "<assemblyIdentity type=\"win32\" name=\"KelvaneCtl\" version=\"" KELVANE_VERSION
        ".0\" processorArchitecture=\"" KELVANE_ARCHITECTURE "\"/>\n"
        "</dependentAssembly></dependency></assembly>\n",
        file);
    std::fclose(file);
  }

  void TearDown() override {
    CoFreeUnusedLibrariesEx(0, 0);
    for (const wchar_t* file :
         {L"\\KelvaneCtl.ocx", L"\\KelvaneCtl.manifest", L"\\host.manifest"}) {
      DeleteFileW((folder_ + file).c_str());
    }
    RemoveDirectoryW(folder_.c_str());
    NothingRegistered::TearDown();
  }

  const std::wstring& folder() const { return folder_; }

 private:
  std::wstring folder_;
};

// A manifest in force on this thread.
class ActiveManifest {
 public:
  ActiveManifest(const std::wstring& folder, const wchar_t* name) {
    const std::wstring path = folder + L"\\" + name;
    ACTCTXW wanted = {};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = path.c_str();
    wanted.lpAssemblyDirectory = folder.c_str();
    context_ = CreateActCtxW(&wanted);
    active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
  }
  ~ActiveManifest() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
  ActiveManifest(const ActiveManifest&) = delete;
  ActiveManifest& operator=(const ActiveManifest&) = delete;
  bool active() const { return active_; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

HRESULT create(const wchar_t* progId, host::ComOwner<IDispatch>& control) {
  CLSID id = {};
  const HRESULT named = CLSIDFromProgID(progId, &id);
  return FAILED(named) ? named
                       : CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                          control.receiveAny());
}

std::wstring pathOfLoaded(const wchar_t* module) {
  wchar_t path[1024] = {};
  GetModuleFileNameW(GetModuleHandleW(module), path, 1024);
  return path;
}

TEST_F(ManifestHost, CreatesTheControlBesideIt) {
  host::ComOwner<IDispatch> control;
  ASSERT_TRUE(FAILED(create(L"Kelvane.KelvaneCtl.1", control)));
  {
    const ActiveManifest manifest(folder(), L"host.manifest");
    ASSERT_TRUE(manifest.active()) << GetLastError();
    ASSERT_EQ(create(L"Kelvane.KelvaneCtl.1", control), S_OK);
  }
  // It stays usable outside, and its members are described without a registered library.
  wchar_t name[] = L"NumDrawAbleItems";
  wchar_t* names[] = {name};
  DISPID member = 0;
  EXPECT_EQ(control->GetIDsOfNames(IID_NULL, names, 1, 0, &member), S_OK);
  EXPECT_EQ(member, 12);
  DISPPARAMS none = {};
  host::Value count;
  EXPECT_EQ(control->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &count.variant(),
                            nullptr, nullptr),
            S_OK);
  EXPECT_EQ(count.number(), 0);
  EXPECT_EQ(host::narrow(pathOfLoaded(L"KelvaneCtl.ocx")),
            host::narrow(folder() + L"\\KelvaneCtl.ocx"));
}

TEST_F(ManifestHost, KnowsBothNamesAndTheMiscStatus) {
  const ActiveManifest manifest(folder(), L"host.manifest");
  ASSERT_TRUE(manifest.active()) << GetLastError();
  CLSID expected = {};
  ASSERT_EQ(CLSIDFromString(kClassId, &expected), S_OK);
  for (const wchar_t* name : {L"Kelvane.KelvaneCtl", L"Kelvane.KelvaneCtl.1"}) {
    host::ComOwner<IDispatch> control;
    ASSERT_EQ(create(name, control), S_OK) << host::narrow(name);
    // The system may give the name an identifier of its own, so the object itself is asked.
    host::ComOwner<IPersistStreamInit> persistence;
    ASSERT_EQ(control->QueryInterface(IID_IPersistStreamInit, persistence.receiveAny()), S_OK);
    CLSID id = {};
    EXPECT_EQ(persistence->GetClassID(&id), S_OK);
    EXPECT_EQ(id, expected) << host::narrow(name);
  }
  DWORD status = 0;
  EXPECT_EQ(OleRegGetMiscStatus(expected, DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);
}

TEST_F(ManifestHost, FindsTheTypes) {
  GUID id = {};
  ASSERT_EQ(CLSIDFromString(kTypeLibraryId, &id), S_OK);
  host::ComOwner<ITypeLib> types;
  ASSERT_TRUE(FAILED(LoadRegTypeLib(id, 1, 0, 0, types.receive())));
  const ActiveManifest manifest(folder(), L"host.manifest");
  ASSERT_TRUE(manifest.active()) << GetLastError();
  EXPECT_EQ(LoadRegTypeLib(id, 1, 0, 0, types.receive()), S_OK);
}

}  // namespace
}  // namespace winetest
