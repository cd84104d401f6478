#include "activex/FormatEnumerator.h"

#include <algorithm>

#include "activex/guard.h"

namespace activex {

HRESULT STDMETHODCALLTYPE FormatEnumerator::QueryInterface(REFIID iid, void** answer) {
  if (answer == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IEnumFORMATETC;
  *answer = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG STDMETHODCALLTYPE FormatEnumerator::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT STDMETHODCALLTYPE FormatEnumerator::Next(ULONG count, FORMATETC* formats,
                                                 ULONG* fetched) {
  if (fetched != nullptr) *fetched = 0;
  if (formats == nullptr) return E_POINTER;
  if (fetched == nullptr && count != 1) return E_INVALIDARG;
  const std::size_t given = std::min<std::size_t>(count, formats_.size() - next_);
  std::copy_n(formats_.begin() + static_cast<std::ptrdiff_t>(next_), given, formats);
  next_ += given;
  if (fetched != nullptr) *fetched = static_cast<ULONG>(given);
  return given == count ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE FormatEnumerator::Skip(ULONG count) {
  const std::size_t skipped = std::min<std::size_t>(count, formats_.size() - next_);
  next_ += skipped;
  return skipped == count ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE FormatEnumerator::Reset() {
  next_ = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE FormatEnumerator::Clone(IEnumFORMATETC** clone) {
  if (clone == nullptr) return E_POINTER;
  *clone = nullptr;
  return guarded([&] {
    auto* const made = new FormatEnumerator(formats_);
    made->next_ = next_;
    *clone = made;
    return S_OK;
  });
}

}  // namespace activex
