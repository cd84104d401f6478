#pragma once

#include <windows.h>

#include <oleauto.h>

namespace activex {

// An automation value that frees itself.
class OwnedVariant {
 public:
  OwnedVariant() { VariantInit(&value_); }
  ~OwnedVariant() { VariantClear(&value_); }
  OwnedVariant(OwnedVariant&& other) noexcept : value_(other.value_) {
    VariantInit(&other.value_);
  }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;

  VARTYPE type() const { return V_VT(&value_); }
  VARIANT& get() { return value_; }
  const VARIANT& get() const { return value_; }
  // For calls that hand out a value: the place to put it, emptied first.
  VARIANT* receive() {
    VariantClear(&value_);
    return &value_;
  }
  // The value for a caller.
  VARIANT detach() {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

}  // namespace activex
