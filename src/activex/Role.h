#pragma once

#include <windows.h>

namespace activex {

// One COM interface of the control object. Its identity and life are the object's.
template <class Interface>
class Role : public Interface {
 public:
  explicit Role(IUnknown& object) : object_(object) {}
  Role(const Role&) = delete;
  Role& operator=(const Role&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override {
    return object_.QueryInterface(iid, answer);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return object_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return object_.Release(); }

 protected:
  ~Role() = default;
  IUnknown& object() const { return object_; }

 private:
  IUnknown& object_;
};

}  // namespace activex
