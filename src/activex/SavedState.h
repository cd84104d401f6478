#pragma once

#include <windows.h>

#include <ocidl.h>

namespace activex {

struct Instance;

// What a host keeps of the control, by whatever way: its extent.
//
// A stream of it is four little-endian numbers of 32 bits: a mark, the version of the layout,
// width and height in hundredths of a millimetre. In a property bag it is the two numbers
// _ExtentX and _ExtentY, in the same measure.
class SavedState {
 public:
  static constexpr ULONG kStreamSize = 16;

  // The control as new: as it is, and unchanged.
  static void initNew(Instance& instance);

  // Streams that are short, foreign or from a later version leave the control as it is.
  static void load(Instance& instance, IStream& stream);
  // The failure of the stream when it does not take everything.
  static HRESULT save(const Instance& instance, IStream& stream);

  // A property that is missing stays as it is, and so does one that is not a number of at least
  // 0, which errors (may be null) is told.
  static void load(Instance& instance, IPropertyBag& bag, IErrorLog* errors);
  // The failure of the bag when it does not take everything.
  static HRESULT save(const Instance& instance, IPropertyBag& bag);
};

}  // namespace activex
