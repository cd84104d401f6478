#pragma once

#include <windows.h>

#include "activex/Automation.h"
#include "activex/ClassInfo.h"
#include "activex/ConnectionPoints.h"
#include "activex/DataObject.h"
#include "activex/InPlace.h"
#include "activex/Instance.h"
#include "activex/OleControl.h"
#include "activex/OleObject.h"
#include "activex/PersistPropertyBag.h"
#include "activex/PersistStorage.h"
#include "activex/PersistStreamInit.h"
#include "activex/ViewObject.h"
#include "activex/module.h"

namespace activex {

// One control as COM sees it: the identity and the count of references, over one small object for
// each role it plays.
class KelvaneObject final : public IUnknown {
 public:
  // Makes a control and asks it for an interface. On failure *answer is null and nothing is left.
  static HRESULT create(REFIID iid, void** answer);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

 private:
  KelvaneObject();
  ~KelvaneObject();
  IUnknown* role(REFIID iid);

  // The making of the parts below takes and gives references already.
  ULONG references_ = 1;
  ModuleReference module_;
  Instance instance_;
  Automation automation_;
  SupportErrorInfo supportErrorInfo_;
  OleObject oleObject_;
  OleControl oleControl_;
  InPlaceObject inPlaceObject_;
  InPlaceActiveObject inPlaceActiveObject_;
  ViewObject viewObject_;
  DataObject dataObject_;
  PersistStreamInit persistStreamInit_;
  PersistPropertyBag persistPropertyBag_;
  PersistStorage persistStorage_;
  ClassInfo classInfo_;
  ConnectionPoints connectionPoints_;
};

}  // namespace activex
