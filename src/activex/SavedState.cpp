#include "activex/SavedState.h"

#include <array>
#include <cstdint>

#include "activex/Instance.h"

namespace activex {
namespace {

using Record = std::array<int32_t, 4>;
static_assert(sizeof(Record) == SavedState::kStreamSize);
constexpr int32_t kMark = 0x4E564C4B;  // "KLVN"
constexpr int32_t kLayout = 1;

constexpr wchar_t kWidthName[] = L"_ExtentX";
constexpr wchar_t kHeightName[] = L"_ExtentY";

// The whole record, or false: a stream may give its bytes in pieces and end anywhere.
bool read(IStream& stream, Record& record) {
  auto* bytes = reinterpret_cast<std::uint8_t*>(record.data());
  ULONG have = 0;
  while (have < sizeof record) {
    ULONG got = 0;
    const HRESULT result =
        stream.Read(bytes + have, static_cast<ULONG>(sizeof record) - have, &got);
    if (FAILED(result) || got == 0) return false;
    have += got;
  }
  return true;
}

void tell(IErrorLog* errors, const wchar_t* name, HRESULT code) {
  if (errors == nullptr) return;
  EXCEPINFO info = {};
  info.scode = code;
  info.bstrSource = SysAllocString(L"KelvaneCtl");
  info.bstrDescription =
      SysAllocString(L"The extent is not a number of hundredths of a millimetre, at least 0.");
  errors->AddError(name, &info);
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
}

// Takes a property over into length, if there is a right one.
void read(IPropertyBag& bag, const wchar_t* name, IErrorLog* errors, LONG& length) {
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = VT_I4;  // what is wanted; bags give what they have
  V_I4(&value) = 0;
  // A bag that fails tells the log itself.
  if (SUCCEEDED(bag.Read(name, &value, errors))) {
    VARIANT number;
    VariantInit(&number);
    // Texts mean the same to every user, and no foreign object is asked for its value.
    HRESULT known = VariantChangeTypeEx(&number, &value, LOCALE_INVARIANT, VARIANT_NOVALUEPROP,
                                        VT_I4);
    if (SUCCEEDED(known) && V_I4(&number) < 0) known = DISP_E_OVERFLOW;
    if (SUCCEEDED(known)) {
      length = V_I4(&number);
    } else {
      tell(errors, name, known);
    }
  }
  VariantClear(&value);
}

HRESULT write(IPropertyBag& bag, const wchar_t* name, LONG length) {
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = VT_I4;
  V_I4(&value) = length;
  return bag.Write(name, &value);
}

}  // namespace

void SavedState::initNew(Instance& instance) { instance.dirty = false; }

void SavedState::load(Instance& instance, IStream& stream) {
  Record record = {};
  const bool ours = read(stream, record) && record[0] == kMark && record[1] == kLayout;
  if (ours && record[2] >= 0 && record[3] >= 0) instance.takeExtent({record[2], record[3]});
  instance.dirty = false;
}

HRESULT SavedState::save(const Instance& instance, IStream& stream) {
  const Record record = {kMark, kLayout, instance.extent.cx, instance.extent.cy};
  ULONG written = 0;
  const HRESULT result = stream.Write(record.data(), sizeof record, &written);
  if (FAILED(result)) return result;
  return written == sizeof record ? S_OK : STG_E_MEDIUMFULL;
}

void SavedState::load(Instance& instance, IPropertyBag& bag, IErrorLog* errors) {
  SIZEL extent = instance.extent;
  read(bag, kWidthName, errors, extent.cx);
  read(bag, kHeightName, errors, extent.cy);
  instance.takeExtent(extent);
  instance.dirty = false;
}

HRESULT SavedState::save(const Instance& instance, IPropertyBag& bag) {
  const HRESULT width = write(bag, kWidthName, instance.extent.cx);
  return FAILED(width) ? width : write(bag, kHeightName, instance.extent.cy);
}

}  // namespace activex
