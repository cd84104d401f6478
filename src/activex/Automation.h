#pragma once

#include <windows.h>

#include "activex/ComPtr.h"
#include "activex/MemberTable.h"
#include "activex/Role.h"
#include "activex/guids.h"

namespace activex {

struct Instance;

// The members for hosts that bind early (the functions of _KelvaneCtl) and late (Invoke, which
// goes through a table of the described members to the same functions). Each forwards to the
// control.
class Automation final : public Role<_KelvaneCtl> {
 public:
  Automation(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argument) override;

  HRESULT STDMETHODCALLTYPE ShowOptions() override;
  HRESULT STDMETHODCALLTYPE NcFile(BSTR filename, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE KewFile(BSTR filename, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE NewSection() override;
  HRESULT STDMETHODCALLTYPE AddSection(float X, float y) override;
  HRESULT STDMETHODCALLTYPE AddColorKey(float vLow, float vHig, OLE_COLOR col) override;
  HRESULT STDMETHODCALLTYPE NewColorKey() override;
  HRESULT STDMETHODCALLTYPE EndSection(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE SetVarByName(BSTR vName, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE SetVarByOrder(LONG Order, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_ErrorMessage(BSTR* text) override;
  HRESULT STDMETHODCALLTYPE get_NumDrawAbleItems(LONG* count) override;
  HRESULT STDMETHODCALLTYPE ItemName(LONG nOrder, BSTR* name) override;
  HRESULT STDMETHODCALLTYPE get_DrawProfile(VARIANT_BOOL* profile) override;
  HRESULT STDMETHODCALLTYPE put_DrawProfile(VARIANT_BOOL profile) override;
  HRESULT STDMETHODCALLTYPE get_DrawVerticalSection(VARIANT_BOOL* section) override;
  HRESULT STDMETHODCALLTYPE put_DrawVerticalSection(VARIANT_BOOL section) override;
  HRESULT STDMETHODCALLTYPE Draw(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE SetCurrentTime(LONG lTime) override;
  HRESULT STDMETHODCALLTYPE AdvanceTime(LONG nt, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE ReDraw(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_UseColorKey(VARIANT_BOOL* use) override;
  HRESULT STDMETHODCALLTYPE put_UseColorKey(VARIANT_BOOL use) override;
  HRESULT STDMETHODCALLTYPE InitColorKey() override;

 private:
  HRESULT typeInfo(ITypeInfo*& info);
  HRESULT readTable();

  Instance& instance_;
  ComPtr<ITypeInfo> typeInfo_;
  MemberTable table_;
};

}  // namespace activex
