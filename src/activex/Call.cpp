#include "activex/Call.h"

#include <limits>

#include "activex/argument.h"

namespace activex {
namespace {

constexpr UINT kNone = std::numeric_limits<UINT>::max();

// Where a function puts a result of this type.
void* placeFor(OwnedVariant& result, VARTYPE type) {
  if (type == VT_VARIANT) return &result.get();
  return &V_BYREF(&result.get());  // the members of the union all begin there
}

}  // namespace

const Member* meantMember(const MemberTable& table, DISPID id, WORD flags) {
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return table.find(id, INVOKE_PROPERTYPUT);
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) return nullptr;
  const Member* const method = table.find(id, INVOKE_FUNC);
  return method != nullptr ? method : table.find(id, INVOKE_PROPERTYGET);
}

// Finds for each parameter which of the given arguments it takes.
HRESULT Call::place(const DISPPARAMS& given, std::vector<UINT>& places, UINT& wrong) const {
  const auto count = static_cast<UINT>(member_.parameters.size());
  if (given.cNamedArgs > given.cArgs) return E_INVALIDARG;
  if (given.cArgs > 0 && given.rgvarg == nullptr) return E_INVALIDARG;
  if (given.cNamedArgs > 0 && given.rgdispidNamedArgs == nullptr) return E_INVALIDARG;
  if (given.cArgs > count) return DISP_E_BADPARAMCOUNT;

  places.assign(count, kNone);
  // Those by place come last to first, after those by name.
  for (UINT i = 0; i < given.cArgs - given.cNamedArgs; ++i) places[i] = given.cArgs - 1 - i;
  for (UINT i = 0; i < given.cNamedArgs; ++i) {
    DISPID parameter = given.rgdispidNamedArgs[i];
    // The new value of a property is its let's last parameter.
    if (parameter == DISPID_PROPERTYPUT && member_.kind == INVOKE_PROPERTYPUT) {
      parameter = static_cast<DISPID>(count) - 1;
    }
    const bool known = parameter >= 0 && static_cast<UINT>(parameter) < count;
    if (!known || places[static_cast<UINT>(parameter)] != kNone) {
      wrong = i;
      return DISP_E_PARAMNOTFOUND;
    }
    places[static_cast<UINT>(parameter)] = i;
  }
  for (const UINT place : places) {
    if (place == kNone) return DISP_E_BADPARAMCOUNT;
  }
  return S_OK;
}

HRESULT Call::take(const DISPPARAMS& given, LCID language, UINT* wrong) {
  UINT unused = 0;
  UINT& place = wrong != nullptr ? *wrong : unused;
  std::vector<UINT> places;
  const HRESULT placed = this->place(given, places, place);
  if (FAILED(placed)) return placed;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const VARIANT& argument = given.rgvarg[places[i]];
    const HRESULT taken = takeArgument(argument, member_.parameters[i].type, language,
                                       arguments_.emplace_back());
    if (FAILED(taken)) {
      place = places[i];
      return taken;
    }
  }
  return S_OK;
}

HRESULT Call::make(IDispatch& object, OwnedVariant& result) {
  std::vector<VARTYPE> types;
  std::vector<VARIANT*> values;
  for (OwnedVariant& argument : arguments_) {
    types.push_back(argument.type());
    values.push_back(&argument.get());
  }
  OwnedVariant made;
  VARIANT reference = {};
  if (member_.result != VT_EMPTY) {
    V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | member_.result);
    V_BYREF(&reference) = placeFor(made, member_.result);
    types.push_back(V_VT(&reference));
    values.push_back(&reference);
  }
  VARIANT status = {};
  const HRESULT called =
      DispCallFunc(&object, member_.offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(types.size()),
                   types.data(), values.data(), &status);
  if (FAILED(called)) return called;
  if (FAILED(V_ERROR(&status))) return V_ERROR(&status);
  if (member_.result != VT_EMPTY && member_.result != VT_VARIANT) {
    V_VT(&made.get()) = member_.result;
  }
  *result.receive() = made.detach();
  return S_OK;
}

}  // namespace activex
