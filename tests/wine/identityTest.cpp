#include <gtest/gtest.h>

#include <ocidl.h>

#include <set>

#include "control.h"

namespace winetest {
namespace {

using host::ComOwner;

const struct {
  const char* name;
  IID id;
} kInterfaces[] = {
    {"IUnknown", IID_IUnknown},
    {"IDispatch", IID_IDispatch},
    {"_KelvaneCtl", __uuidof(_KelvaneCtl)},
    {"ISupportErrorInfo", IID_ISupportErrorInfo},
    {"IOleObject", IID_IOleObject},
    {"IOleControl", IID_IOleControl},
    {"IOleWindow", IID_IOleWindow},
    {"IOleInPlaceObject", IID_IOleInPlaceObject},
    {"IOleInPlaceActiveObject", IID_IOleInPlaceActiveObject},
    {"IViewObject", IID_IViewObject},
    {"IViewObject2", IID_IViewObject2},
    {"IPersist", IID_IPersist},
    {"IPersistStreamInit", IID_IPersistStreamInit},
    {"IPersistPropertyBag", IID_IPersistPropertyBag},
    {"IPersistStorage", IID_IPersistStorage},
    {"IDataObject", IID_IDataObject},
    {"IProvideClassInfo", IID_IProvideClassInfo},
    {"IProvideClassInfo2", IID_IProvideClassInfo2},
};

TEST(Identity, IsTheSameThroughEveryInterface) {
  BareControl control;
  for (const auto& row : kInterfaces) {
    ComOwner<IUnknown> role, identity;
    ASSERT_EQ(control.identity()->QueryInterface(row.id, role.receiveAny()), S_OK) << row.name;
    ASSERT_EQ(role->QueryInterface(IID_IUnknown, identity.receiveAny()), S_OK) << row.name;
    EXPECT_EQ(identity.get(), control.identity()) << row.name;
    for (const auto& other : kInterfaces) {
      ComOwner<IUnknown> reached;
      EXPECT_EQ(role->QueryInterface(other.id, reached.receiveAny()), S_OK)
          << row.name << " to " << other.name;
    }
  }
}

TEST(Identity, RefusesWhatItDoesNotImplement) {
  BareControl control;
  for (const IID& id : {IID_IOleInPlaceObjectWindowless, IID_IQuickActivate, IID_IPointerInactive,
                        IID_IClassFactory}) {
    void* answer = control.identity();
    EXPECT_EQ(control.identity()->QueryInterface(id, &answer), E_NOINTERFACE);
    EXPECT_EQ(answer, nullptr);
  }
  EXPECT_EQ(control.identity()->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(References, EndAtZeroAndLetTheLibraryGo) {
  BareControl control;
  EXPECT_EQ(control.library().canUnloadNow(), S_FALSE);
  {
    ComOwner<IUnknown> roles[std::size(kInterfaces)];
    for (std::size_t i = 0; i < std::size(kInterfaces); ++i) {
      control.identity()->QueryInterface(kInterfaces[i].id, roles[i].receiveAny());
    }
  }
  ASSERT_NE(control.members(), nullptr);
  ASSERT_NE(control.ole(), nullptr);
  EXPECT_EQ(control.release(), 0U);
  EXPECT_EQ(control.library().canUnloadNow(), S_OK);
}

TEST(References, OfTheFactoryAndItsLockHoldTheLibrary) {
  const Library library;
  ASSERT_EQ(library.canUnloadNow(), S_OK);
  ComOwner<IClassFactory> factory;
  ASSERT_EQ(library.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny()), S_OK);
  EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  ComOwner<IClassFactory> second;
  ASSERT_EQ(library.getClassObject(kClassId, IID_IClassFactory, second.receiveAny()), S_OK);
  EXPECT_EQ(factory.release(), 0U);
  EXPECT_EQ(second->LockServer(FALSE), S_OK);
  EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  EXPECT_EQ(second.release(), 0U);
  EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(References, OfManyControlsInAnyOrder) {
  const Library library;
  ComOwner<IClassFactory> factory;
  library.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
  ComOwner<IUnknown> controls[8];
  for (auto& control : controls) {
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, control.receiveAny()), S_OK);
  }
  for (const int i : {3, 0, 7, 5, 1, 6, 2, 4}) EXPECT_EQ(controls[i].release(), 0U);
  EXPECT_EQ(factory.release(), 0U);
  EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(Factory, RefusesWhatItCannotMake) {
  const Library library;
  ComOwner<IClassFactory> factory;
  ASSERT_EQ(library.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny()), S_OK);
  void* answer = factory.get();
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &answer), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(answer, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IQuickActivate, &answer), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(library.getClassObject(IID_IUnknown, IID_IClassFactory, &answer),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(library.getClassObject(kClassId, IID_IDispatch, &answer), E_NOINTERFACE);
  EXPECT_EQ(library.getClassObject(kClassId, IID_IClassFactory, nullptr), E_POINTER);
  EXPECT_EQ(factory.release(), 0U);
  EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(Library, CanBeUnloadedAndLoadedAgain) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(GetModuleHandleW(L"KelvaneCtl.ocx"), nullptr) << round;
    BareControl control;
    ASSERT_NE(control.members(), nullptr);
    VARIANT result;
    VariantInit(&result);
    EXPECT_EQ(control.members()->EndSection(&result), S_OK);
    EXPECT_EQ(control.release(), 0U);
    EXPECT_EQ(control.library().canUnloadNow(), S_OK);
  }
}

TEST(ClassInfo, TellsTheClassAndItsEvents) {
  BareControl control;
  ComOwner<IProvideClassInfo2> provider;
  ASSERT_NE(control.as(provider), nullptr);
  ComOwner<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->guid, kClassId);
  info->ReleaseTypeAttr(attributes);
  GUID events = {};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_EQ(events, __uuidof(__KelvaneCtl));
  EXPECT_EQ(provider->GetGUID(77, &events), E_INVALIDARG);
}

}  // namespace
}  // namespace winetest
