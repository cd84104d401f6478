#pragma once

#include <windows.h>

#include <oaidl.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace host {

// UTF-16 to UTF-8 and back.
std::string narrow(const std::wstring& text);
std::wstring wide(const std::string& text);

// A refused call: its code, and a text for the user (UTF-8).
class HostError : public std::runtime_error {
 public:
  HostError(HRESULT code, const std::string& text) : std::runtime_error(text), code_(code) {}
  HRESULT code() const { return code_; }

 private:
  HRESULT code_;
};

// Throws HostError when the call named by what was refused.
void require(HRESULT result, const std::string& what);

// An automation value that frees itself.
class Value {
 public:
  Value() { VariantInit(&variant_); }
  Value(int number);
  Value(double number);
  Value(bool flag);
  Value(const std::wstring& text);
  Value(const wchar_t* text) : Value(std::wstring(text)) {}
  Value(const Value& other);
  Value& operator=(const Value& other);
  ~Value() { VariantClear(&variant_); }

  VARTYPE type() const { return V_VT(&variant_); }
  // The value as another type; HostError when it cannot be one.
  int number() const;
  bool flag() const;
  std::wstring text() const;

  VARIANT& variant() { return variant_; }

 private:
  Value as(VARTYPE type) const;
  mutable VARIANT variant_;  // the system's calls take even what they only read as writable
};

// An object driven by the names of its members, as scripts do. A run-time error that a member
// raises arrives as HostError with the scode and description of the exception.
class Object {
 public:
  // Takes a reference of its own.
  explicit Object(IUnknown* object);
  ~Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  Value call(const wchar_t* name, std::vector<Value> arguments = {});
  Value get(const wchar_t* name);
  void put(const wchar_t* name, const Value& value);

  IDispatch* dispatch() const { return dispatch_; }

 private:
  Value invoke(const wchar_t* name, WORD flags, std::vector<Value> arguments);
  IDispatch* dispatch_ = nullptr;
};

}  // namespace host
