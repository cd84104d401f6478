#pragma once

#include <windows.h>

#include <oaidl.h>

#include "container/Counted.h"

namespace form {

// What a form tells a control about its surroundings: colours, font, language, and that it runs.
class AmbientProperties final : public Counted<IDispatch> {
 public:
  // While true, the control should not react to the user.
  void setDead(bool dead) { dead_ = dead; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** place) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO*, UINT*) override;

 private:
  HRESULT get(DISPID id, VARIANT& value) const;
  bool dead_ = false;
};

}  // namespace form
