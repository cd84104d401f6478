#include <gtest/gtest.h>
#include <ocidl.h>
#include <olectl.h>

#include <map>
#include <string>

#include "Sited.h"

namespace winetest {
namespace {

class OleObject : public testing::Test {
 protected:
  IOleObject* ole() { return control_.ole(); }

  BareControl control_;
};

TEST_F(OleObject, TellsItsMiscStatusForEveryAspect) {
  DWORD status = 0;
  EXPECT_EQ(ole()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);
  for (const DWORD aspect : {DVASPECT_THUMBNAIL, DVASPECT_ICON, DVASPECT_DOCPRINT}) {
    EXPECT_EQ(ole()->GetMiscStatus(aspect, &status), S_OK) << aspect;
    EXPECT_EQ(status, 0U) << aspect;
  }
  EXPECT_EQ(ole()->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
}

TEST_F(OleObject, NamesItsClassWithoutARegistration) {
  HKEY key = nullptr;
  ASSERT_EQ(RegOpenKeyW(HKEY_CLASSES_ROOT, L"CLSID\\{8A6F972D-535F-4438-972A-00CA8732D855}", &key),
            ERROR_FILE_NOT_FOUND);
  CLSID id = {};
  EXPECT_EQ(ole()->GetUserClassID(&id), S_OK);
  EXPECT_EQ(id, kClassId);
  EXPECT_EQ(ole()->GetUserClassID(nullptr), E_POINTER);
  const std::map<DWORD, std::wstring> names = {{USERCLASSTYPE_FULL, L"Kelvane section control"},
                                               {USERCLASSTYPE_SHORT, L"Section"},
                                               {USERCLASSTYPE_APPNAME, L"Kelvane"}};
  for (const auto& [form, expected] : names) {
    LPOLESTR name = nullptr;
    ASSERT_EQ(ole()->GetUserType(form, &name), S_OK) << form;
    EXPECT_EQ(host::narrow(name), host::narrow(expected));
    CoTaskMemFree(name);
  }
  auto* name = const_cast<LPOLESTR>(L"");
  EXPECT_EQ(ole()->GetUserType(77, &name), E_INVALIDARG);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(ole()->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
}

TEST_F(OleObject, ListsItsVerbsWithoutARegistration) {
  ComOwner<IEnumOLEVERB> list;
  ASSERT_EQ(ole()->EnumVerbs(list.receive()), S_OK);
  OLEVERB verbs[4] = {};
  ULONG count = 0;
  ASSERT_EQ(list->Next(4, verbs, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  EXPECT_EQ(verbs[0].lVerb, OLEIVERB_PRIMARY);
  EXPECT_EQ(host::narrow(verbs[0].lpszVerbName), "&Activate");
  EXPECT_EQ(verbs[1].lVerb, OLEIVERB_PROPERTIES);
  EXPECT_EQ(host::narrow(verbs[1].lpszVerbName), "&Options...");
  for (ULONG i = 0; i < count; ++i) {
    EXPECT_EQ(verbs[i].grfAttribs,
              static_cast<DWORD>(OLEVERBATTRIB_NEVERDIRTIES | OLEVERBATTRIB_ONCONTAINERMENU));
    CoTaskMemFree(verbs[i].lpszVerbName);
  }
  EXPECT_EQ(list->Next(1, verbs, nullptr), S_FALSE);
  EXPECT_EQ(list->Reset(), S_OK);
  EXPECT_EQ(list->Skip(1), S_OK);
  ComOwner<IEnumOLEVERB> clone;
  ASSERT_EQ(list->Clone(clone.receive()), S_OK);
  EXPECT_EQ(list->Skip(2), S_FALSE);
  ASSERT_EQ(clone->Next(1, verbs, nullptr), S_OK);
  EXPECT_EQ(verbs[0].lVerb, OLEIVERB_PROPERTIES);
  CoTaskMemFree(verbs[0].lpszVerbName);
  EXPECT_EQ(clone->Next(1, nullptr, &count), E_POINTER);
  EXPECT_EQ(clone->Clone(nullptr), E_POINTER);
  EXPECT_EQ(ole()->EnumVerbs(nullptr), E_POINTER);
  EXPECT_EQ(clone.release(), 0U);
  EXPECT_EQ(list.release(), 0U);
}

TEST_F(OleObject, TakesHostNamesAndIsAlwaysUpToDate) {
  EXPECT_EQ(ole()->SetHostNames(L"Host", L"Form1"), S_OK);
  EXPECT_EQ(ole()->SetHostNames(nullptr, nullptr), S_OK);
  EXPECT_EQ(ole()->Update(), S_OK);
  EXPECT_EQ(ole()->IsUpToDate(), S_OK);
}

TEST_F(OleObject, RefusesWhatControlsNeedNotHave) {
  auto* moniker = reinterpret_cast<IMoniker*>(ole());
  auto* data = reinterpret_cast<IDataObject*>(ole());
  EXPECT_EQ(ole()->SetMoniker(OLEWHICHMK_OBJFULL, nullptr), E_NOTIMPL);
  EXPECT_EQ(ole()->GetMoniker(OLEGETMONIKER_FORCEASSIGN, OLEWHICHMK_OBJFULL, &moniker), E_NOTIMPL);
  EXPECT_EQ(moniker, nullptr);
  EXPECT_EQ(ole()->GetMoniker(OLEGETMONIKER_FORCEASSIGN, OLEWHICHMK_OBJFULL, nullptr), E_POINTER);
  EXPECT_EQ(ole()->InitFromData(nullptr, TRUE, 0), E_NOTIMPL);
  EXPECT_EQ(ole()->GetClipboardData(0, &data), E_NOTIMPL);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(ole()->GetClipboardData(0, nullptr), E_POINTER);
  EXPECT_EQ(ole()->SetColorScheme(nullptr), E_NOTIMPL);
}

TEST_F(OleObject, KeepsItsSinks) {
  AdviseSink first, second;
  DWORD one = 0, other = 0;
  EXPECT_EQ(ole()->Unadvise(1), OLE_E_NOCONNECTION);
  ASSERT_EQ(ole()->Advise(&first, &one), S_OK);
  ASSERT_EQ(ole()->Advise(&second, &other), S_OK);
  EXPECT_NE(one, other);
  ComOwner<IEnumSTATDATA> list;
  ASSERT_EQ(ole()->EnumAdvise(list.receive()), S_OK);
  STATDATA found[3] = {};
  ULONG count = 0;
  EXPECT_EQ(list->Next(3, found, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  for (ULONG i = 0; i < count; ++i) found[i].pAdvSink->Release();
  list.reset();
  EXPECT_EQ(ole()->Unadvise(one), S_OK);
  EXPECT_EQ(ole()->Unadvise(one), OLE_E_NOCONNECTION);
  EXPECT_EQ(ole()->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(first.closes, 0);
  EXPECT_EQ(second.closes, 1);
  EXPECT_EQ(ole()->Unadvise(other), S_OK);
  EXPECT_EQ(first.references, 1U);
  EXPECT_EQ(second.references, 1U);
  EXPECT_EQ(ole()->Advise(nullptr, &one), E_POINTER);
  EXPECT_EQ(ole()->Advise(&first, nullptr), E_POINTER);
  EXPECT_EQ(ole()->EnumAdvise(nullptr), E_POINTER);
}

TEST_F(OleObject, TellsItsSinksOfEverySave) {
  AdviseSink sink;
  DWORD connection = 0;
  ASSERT_EQ(ole()->Advise(&sink, &connection), S_OK);
  ComOwner<IPersistStreamInit> streamed;
  ComOwner<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), S_OK);
  EXPECT_EQ(control_.as(streamed)->Save(stream.get(), FALSE), S_OK);  // a copy only
  EXPECT_EQ(sink.saves, 0);
  EXPECT_EQ(streamed->Save(stream.get(), TRUE), S_OK);
  EXPECT_EQ(sink.saves, 1);
  EXPECT_EQ(sink.renames, 0);
  EXPECT_EQ(ole()->Unadvise(connection), S_OK);
}

TEST_F(OleObject, HasNoSiteUntilItIsGivenOne) {
  auto* none = reinterpret_cast<IOleClientSite*>(ole());
  EXPECT_EQ(ole()->GetClientSite(&none), S_OK);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(ole()->GetClientSite(nullptr), E_POINTER);
  TestSite site;
  EXPECT_EQ(ole()->SetClientSite(&site), S_OK);
  ComOwner<IOleClientSite> told;
  EXPECT_EQ(ole()->GetClientSite(told.receive()), S_OK);
  EXPECT_EQ(told.get(), &site);
  told.reset();
  EXPECT_EQ(ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(site.references, 1U);
}

}  // namespace
}  // namespace winetest
