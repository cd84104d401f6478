#include "activex/KelvaneObject.h"

#include "activex/guard.h"

namespace activex {

HRESULT KelvaneObject::create(REFIID iid, void** answer) {
  return guarded([&] {
    auto* created = new KelvaneObject;
    const HRESULT result = created->QueryInterface(iid, answer);
    created->Release();
    return result;
  });
}

KelvaneObject::KelvaneObject()
    : instance_(*this),
      automation_(*this, instance_),
      supportErrorInfo_(*this),
      oleObject_(*this, instance_),
      oleControl_(*this, instance_),
      inPlaceObject_(*this, instance_),
      inPlaceActiveObject_(*this, instance_),
      viewObject_(*this, instance_),
      dataObject_(*this, instance_),
      persistStreamInit_(*this, instance_),
      persistPropertyBag_(*this, instance_),
      persistStorage_(*this, instance_),
      classInfo_(*this),
      connectionPoints_(*this) {}

KelvaneObject::~KelvaneObject() { instance_.activation.deactivate(); }

HRESULT STDMETHODCALLTYPE KelvaneObject::QueryInterface(REFIID iid, void** answer) {
  if (answer == nullptr) return E_POINTER;
  IUnknown* const found = role(iid);
  *answer = found;
  if (found == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

IUnknown* KelvaneObject::role(REFIID iid) {
  if (iid == IID_IUnknown) return this;
  if (iid == IID_IDispatch || iid == IID__KelvaneCtl) return &automation_;
  if (iid == IID_ISupportErrorInfo) return &supportErrorInfo_;
  if (iid == IID_IOleObject) return &oleObject_;
  if (iid == IID_IOleControl) return &oleControl_;
  if (iid == IID_IOleWindow || iid == IID_IOleInPlaceObject) return &inPlaceObject_;
  if (iid == IID_IOleInPlaceActiveObject) return &inPlaceActiveObject_;
  if (iid == IID_IViewObject || iid == IID_IViewObject2) return &viewObject_;
  if (iid == IID_IDataObject) return &dataObject_;
  if (iid == IID_IPersist || iid == IID_IPersistStreamInit) return &persistStreamInit_;
  if (iid == IID_IPersistPropertyBag) return &persistPropertyBag_;
  if (iid == IID_IPersistStorage) return &persistStorage_;
  if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) return &classInfo_;
  if (iid == IID_IConnectionPointContainer) return &connectionPoints_;
  return nullptr;
}

ULONG STDMETHODCALLTYPE KelvaneObject::AddRef() { return ++references_; }

ULONG STDMETHODCALLTYPE KelvaneObject::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    // Parting from the host goes through entry points that count references again.
    references_ = 1;
    guarded([&] {
      delete this;
      return S_OK;
    });
  }
  return left;
}

}  // namespace activex
