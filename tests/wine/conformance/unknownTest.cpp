#include <dispex.h>
#include <gtest/gtest.h>
#include <objsafe.h>
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
    {"IConnectionPointContainer", IID_IConnectionPointContainer},
};

TEST(UnknownRules, LeadFromEveryInterfaceToEveryOther) {
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

TEST(UnknownRules, GiveTheSamePointerEveryTime) {
  BareControl control;
  for (const auto& row : kInterfaces) {
    ComOwner<IUnknown> first, second;
    ASSERT_EQ(control.identity()->QueryInterface(row.id, first.receiveAny()), S_OK) << row.name;
    ASSERT_EQ(first->QueryInterface(row.id, second.receiveAny()), S_OK) << row.name;
    EXPECT_EQ(first.get(), second.get()) << row.name;
  }
}

TEST(UnknownRules, RefuseANullPlaceThroughEveryInterface) {
  BareControl control;
  for (const auto& row : kInterfaces) {
    ComOwner<IUnknown> role;
    ASSERT_EQ(control.identity()->QueryInterface(row.id, role.receiveAny()), S_OK) << row.name;
    EXPECT_EQ(role->QueryInterface(IID_IUnknown, nullptr), E_POINTER) << row.name;
    void* answer = &control;
    EXPECT_EQ(role->QueryInterface(IID_IQuickActivate, &answer), E_NOINTERFACE) << row.name;
    EXPECT_EQ(answer, nullptr) << row.name;
  }
}

// A host that is given an interface relies on all of it.
TEST(NotAnswered, InterfacesAreRefused) {
  const struct {
    const char* name;
    IID id;
  } rows[] = {
      {"IOleInPlaceObjectWindowless", IID_IOleInPlaceObjectWindowless},
      {"IPointerInactive", IID_IPointerInactive},
      {"IViewObjectEx", IID_IViewObjectEx},
      {"IQuickActivate", IID_IQuickActivate},
      {"IObjectSafety", IID_IObjectSafety},
      {"ISpecifyPropertyPages", IID_ISpecifyPropertyPages},
      {"IPerPropertyBrowsing", IID_IPerPropertyBrowsing},
      {"IObjectWithSite", IID_IObjectWithSite},
      {"IDispatchEx", __uuidof(IDispatchEx)},
      {"IPersistStream", IID_IPersistStream},
      {"IPersistFile", IID_IPersistFile},
      {"IPersistMemory", IID_IPersistMemory},
      {"IPersistPropertyBag2", IID_IPersistPropertyBag2},
      {"IOleCache", IID_IOleCache},
      {"IOleLink", IID_IOleLink},
      {"IOleItemContainer", IID_IOleItemContainer},
      {"IRunnableObject", IID_IRunnableObject},
      {"IExternalConnection", IID_IExternalConnection},
      {"IMarshal", IID_IMarshal},
      {"IConnectionPoint", IID_IConnectionPoint},
      {"IPropertyNotifySink", IID_IPropertyNotifySink},
      {"IClassFactory", IID_IClassFactory},
      {"its events", __uuidof(__KelvaneCtl)},
      {"none", IID_NULL},
  };
  BareControl control;
  for (const auto& row : rows) {
    void* answer = &control;
    EXPECT_EQ(control.identity()->QueryInterface(row.id, &answer), E_NOINTERFACE) << row.name;
    EXPECT_EQ(answer, nullptr) << row.name;
  }
}

TEST(ObjectCount, EndAtZeroAndLetTheLibraryGo) {
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

TEST(ObjectCount, OfTheFactoryAndItsLockHoldTheLibrary) {
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

TEST(ObjectCount, OfManyControlsInAnyOrder) {
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

TEST(ClassFactory, RefusesWhatItCannotMake) {
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

TEST(ObjectCount, CanBeUnloadedAndLoadedAgain) {
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

TEST(ProvideClassInfo, TellsTheClassAndItsEvents) {
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
  EXPECT_EQ(events, GUID_NULL);
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
  EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
}

// The event interface that is told is the one that the class description marks.
TEST(ProvideClassInfo, AgreesWithTheTypeLibrary) {
  BareControl control;
  ComOwner<IProvideClassInfo2> provider;
  ComOwner<ITypeInfo> info, source;
  GUID events = {};
  ASSERT_EQ(control.as(provider)->GetClassInfo(info.receive()), S_OK);
  ASSERT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  INT flags = 0;
  HREFTYPE reference = 0;
  ASSERT_EQ(info->GetImplTypeFlags(1, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
  ASSERT_EQ(info->GetRefTypeOfImplType(1, &reference), S_OK);
  ASSERT_EQ(info->GetRefTypeInfo(reference, source.receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(source->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, events);
  source->ReleaseTypeAttr(attributes);
}

TEST(SupportErrorInfo, IsThereForTheMembersOnly) {
  BareControl control;
  ComOwner<ISupportErrorInfo> support;
  ASSERT_NE(control.as(support), nullptr);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_KelvaneCtl)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
}

}  // namespace
}  // namespace winetest
