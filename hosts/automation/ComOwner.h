#pragma once

#include <utility>

namespace host {

// Owns one reference to a COM object.
template <class Interface>
class ComOwner {
 public:
  ComOwner() = default;
  ComOwner(const ComOwner&) = delete;
  ComOwner& operator=(const ComOwner&) = delete;
  ~ComOwner() { reset(); }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  void reset() { release(); }
  // Gives the reference back: how many are left, as far as the object tells.
  unsigned long release() {
    Interface* object = std::exchange(object_, nullptr);
    return object != nullptr ? object->Release() : 0;
  }
  Interface** receive() {
    reset();
    return &object_;
  }
  void** receiveAny() { return reinterpret_cast<void**>(receive()); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace host
