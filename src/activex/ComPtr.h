#pragma once

#include <windows.h>

#include <utility>

namespace activex {

// A counted reference to a COM object.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // The reference is dropped last, so that the object sees this pointer empty already.
  void reset() { ComPtr().swap(*this); }
  void swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }

  // For calls that hand out a reference: the place to put it, emptied first.
  Interface** receive() {
    reset();
    return &object_;
  }
  void** receiveAny() { return reinterpret_cast<void**>(receive()); }
  // The reference for a caller.
  Interface* detach() { return std::exchange(object_, nullptr); }

  template <class Other>
  ComPtr<Other> as() const {
    ComPtr<Other> other;
    if (object_ != nullptr) object_->QueryInterface(__uuidof(Other), other.receiveAny());
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

// Keeps an object alive through a call that may drop every other reference to it.
class KeptAlive {
 public:
  explicit KeptAlive(IUnknown& object) : object_(object) { object_.AddRef(); }
  ~KeptAlive() { object_.Release(); }
  KeptAlive(const KeptAlive&) = delete;
  KeptAlive& operator=(const KeptAlive&) = delete;

 private:
  IUnknown& object_;
};

}  // namespace activex
