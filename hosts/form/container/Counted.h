#pragma once

#include <windows.h>

#include <unknwn.h>

namespace form {

// A count of references, which a COM object of this program is made with and deleted by. All of it
// happens on one thread.
template <class... Interfaces>
class Counted : public Interfaces... {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() = default;
  // Answers QueryInterface with a reference to one of the interfaces, or with none.
  template <class Interface>
  HRESULT answer(Interface* found, void** place) {
    *place = found;
    if (found == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

 private:
  ULONG references_ = 1;
};

}  // namespace form
