#pragma once

#include <windows.h>

#include <new>

#include "activex/ComPtr.h"
#include "activex/floatingPoint.h"

namespace activex {

// Runs the body of a COM entry point: in our floating-point environment, the object kept alive,
// and with every exception turned into a failure code, since none may reach the caller.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
  const FloatingPointScope floatingPoint;
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

template <class Body>
HRESULT guarded(IUnknown& object, Body&& body) noexcept {
  const FloatingPointScope floatingPoint;
  const KeptAlive alive(object);
  return guarded(body);
}

}  // namespace activex
