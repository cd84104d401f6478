#pragma once

#include <windows.h>

#include <ole2.h>

#include <functional>
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
    if (meanwhile) meanwhile();
  }
  void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) override {
    ++views;
    lastAspect = aspect;
    lastIndex = index;
    if (meanwhile) meanwhile();
  }
  void STDMETHODCALLTYPE OnRename(IMoniker*) override { ++renames; }
  void STDMETHODCALLTYPE OnSave() override { ++saves; }
  void STDMETHODCALLTYPE OnClose() override { ++closes; }

  virtual ~AdviseSink() = default;
  std::function<void()> meanwhile;  // what it does when the data or the view change
  ULONG references = 1;
  std::vector<CLIPFORMAT> formats;  // of the changes of data, one each
  std::vector<DWORD> media;         // what came with them
  int views = 0, renames = 0, saves = 0, closes = 0;
  DWORD lastAspect = 0;
  LONG lastIndex = 0;
};

}  // namespace winetest
