#pragma once

#include <windows.h>

#include <ole2.h>

#include "BoxAnswerer.h"
#include "ComOwner.h"
#include "library.h"

#include <KelvaneCtl.idl.h>

namespace winetest {

inline constexpr CLSID kClassId = {
    0x8A6F972D, 0x535F, 0x4438, {0x97, 0x2A, 0x00, 0xCA, 0x87, 0x32, 0xD8, 0x55}};

// A control straight from the library, without registration, container or window.
class BareControl {
 public:
  BareControl() {
    host::ComOwner<IClassFactory> factory;
    library_.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
    if (factory) factory->CreateInstance(nullptr, IID_IUnknown, identity_.receiveAny());
  }

  const std::vector<host::SeenBox>& boxes() const { return answerer_.boxes(); }
  const Library& library() const { return library_; }
  IUnknown* identity() const { return identity_.get(); }
  _KelvaneCtl* members() { return as(members_); }
  IOleObject* ole() { return as(ole_); }
  IViewObject2* view() { return as(view_); }

  // Another of its interfaces; null when it has none such.
  template <class Interface>
  Interface* as(host::ComOwner<Interface>& place) {
    if (!place) identity_->QueryInterface(__uuidof(Interface), place.receiveAny());
    return place.get();
  }
  // Drops every reference; what the last one left.
  ULONG release() {
    members_.reset();
    ole_.reset();
    view_.reset();
    return identity_.release();
  }

 private:
  host::BoxAnswerer answerer_;
  Library library_;
  host::ComOwner<IUnknown> identity_;
  host::ComOwner<_KelvaneCtl> members_;
  host::ComOwner<IOleObject> ole_;
  host::ComOwner<IViewObject2> view_;
};

}  // namespace winetest
