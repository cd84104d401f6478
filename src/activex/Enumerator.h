#pragma once

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "activex/guard.h"
#include "activex/module.h"

namespace activex {

// A list in the form that COM hands lists out: whoever asked for it walks through a copy of its
// own, and keeps the library loaded meanwhile. Kind tells of what:
//   Interface  the enumerator's interface
//   Kept       an item as the list keeps it
//   Given      an item as the caller gets it
//   static bool give(const Kept&, Given&) noexcept   false without memory
//   static void takeBack(Given&) noexcept            frees what was given
template <class Kind>
class Enumerator final : public Kind::Interface {
 public:
  using Interface = typename Kind::Interface;
  using Kept = typename Kind::Kept;
  using Given = typename Kind::Given;

  explicit Enumerator(std::vector<Kept> items) : items_(std::move(items)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override {
    if (answer == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == __uuidof(Interface);
    *answer = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      guarded([&] {
        delete this;
        return S_OK;
      });
    }
    return left;
  }

  // A caller that wants to know no count may ask for one item only.
  HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* items, ULONG* fetched) override {
    if (fetched != nullptr) *fetched = 0;
    if (items == nullptr) return E_POINTER;
    if (fetched == nullptr && count != 1) return E_INVALIDARG;
    return guarded([&]() -> HRESULT {
      const ULONG wanted = std::min(count, left());
      for (ULONG given = 0; given < wanted; ++given) {
        if (Kind::give(items_[next_ + given], items[given])) continue;
        while (given > 0) Kind::takeBack(items[--given]);
        return E_OUTOFMEMORY;
      }
      next_ += wanted;
      if (fetched != nullptr) *fetched = wanted;
      return wanted == count ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const ULONG skipped = std::min(count, left());
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  // The clone stands where this one stands.
  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return guarded([&] {
      auto* const made = new Enumerator(items_);
      made->next_ = next_;
      *clone = made;
      return S_OK;
    });
  }

 private:
  ~Enumerator() = default;
  ULONG left() const { return static_cast<ULONG>(items_.size() - next_); }

  ModuleReference module_;
  const std::vector<Kept> items_;
  std::size_t next_ = 0;
  ULONG references_ = 1;
};

}  // namespace activex
