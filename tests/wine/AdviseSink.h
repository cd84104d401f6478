#pragma once

#include <windows.h>

#include <ole2.h>

#include <vector>

namespace winetest {

// Counts what it is told. It lives as long as its test, whatever references are left.
class AdviseSink final : public IAdviseSink {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override {
    const bool known = iid == IID_IUnknown || iid == IID_IAdviseSink;
    *answer = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC* format, STGMEDIUM* medium) override {
    formats.push_back(format->cfFormat);
    media.push_back(medium->tymed);
  }
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override {}
  void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
  void STDMETHODCALLTYPE OnSave() override { ++saves; }
  void STDMETHODCALLTYPE OnClose() override {}

  virtual ~AdviseSink() = default;
  ULONG references = 1;
  std::vector<CLIPFORMAT> formats;  // of the changes of data, one each
  std::vector<DWORD> media;         // what came with them
  int saves = 0;
};

}  // namespace winetest
