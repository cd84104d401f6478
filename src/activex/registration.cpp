#include "activex/registration.h"

#include <comcat.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "activex/guids.h"
#include "activex/identity.h"
#include "activex/module.h"
#include "activex/registrationJournal.h"
#include "activex/registrationText.h"
#include "activex/registrationTypes.h"

namespace activex {
namespace {

// By which form designers find controls, and how they may save them: one for each persistence
// interface that the control answers.
const GUID* const kCategories[] = {&CATID_Control, &CATID_PersistsToStreamInit,
                                   &CATID_PersistsToPropertyBag, &CATID_PersistsToStorage};

struct Value {
  std::wstring key;
  const wchar_t* name;  // null: the key's own value
  std::wstring text;
};

std::wstring classKey() { return L"CLSID\\" + textOf(CLSID_KelvaneCtl); }

std::vector<Value> valuesOf(const std::wstring& path) {
  const std::wstring id = textOf(CLSID_KelvaneCtl), key = classKey();
  std::vector<Value> values = {
      {kVersionedProgId, nullptr, kUserType},
      {std::wstring(kVersionedProgId) + L"\\CLSID", nullptr, id},
      {kProgId, nullptr, kUserType},
      {std::wstring(kProgId) + L"\\CLSID", nullptr, id},
      {std::wstring(kProgId) + L"\\CurVer", nullptr, kVersionedProgId},
      {key, nullptr, kUserType},
      {key + L"\\ProgID", nullptr, kVersionedProgId},
      {key + L"\\VersionIndependentProgID", nullptr, kProgId},
      {key + L"\\InprocServer32", nullptr, path},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\TypeLib", nullptr, textOf(LIBID_Kelvane)},
      {key + L"\\Version", nullptr, kVersion},
      {key + L"\\MiscStatus", nullptr, L"0"},
      {key + L"\\MiscStatus\\1", nullptr, std::to_wstring(kMiscStatus)},
      {key + L"\\Control", nullptr, L""},
      {key + L"\\Programmable", nullptr, L""},
      {key + L"\\ToolboxBitmap32", nullptr, path + L",1"},
  };
  for (const GUID* category : kCategories) {
    values.push_back({key + L"\\Implemented Categories\\" + textOf(*category), nullptr, L""});
  }
  return values;
}

HRESULT writeClass(RegistrationJournal& journal, const std::wstring& path) {
  for (const Value& value : valuesOf(path)) {
    if (!journal.write(value.key, value.name, value.text)) return SELFREG_E_CLASS;
  }
  return S_OK;
}

HRESULT removeClass(const RegistrationRoot& root) {
  bool removed = root.removeTree(classKey());
  if (!root.existsForOtherBitness(classKey() + L"\\InprocServer32")) {
    // One that cannot be removed does not keep the other.
    removed = root.removeTree(kProgId) && removed;
    removed = root.removeTree(kVersionedProgId) && removed;
  }
  return removed ? S_OK : SELFREG_E_CLASS;
}

HRESULT unregisterFrom(const RegistrationRoot& root, Scope scope) {
  const HRESULT library = removeTypeLibrary(root);
  const HRESULT itsClass = removeClass(root);
  if (scope == Scope::User) {
    // A user who has registered nothing has none of these.
    for (const wchar_t* key : {L"CLSID", L"Interface", L"TypeLib"}) root.removeIfEmpty(key);
  }
  return FAILED(itsClass) ? itsClass : library;
}

}  // namespace

HRESULT registerControl(Scope scope) {
  const std::wstring path = modulePath();
  if (path.empty()) return SELFREG_E_CLASS;
  const RegistrationRoot root(scope);
  RegistrationJournal journal(root);
  HRESULT result = writeClass(journal, path);
  if (SUCCEEDED(result)) result = writeTypeLibrary(journal);
  if (SUCCEEDED(result)) journal.keep();
  return result;
}

HRESULT unregisterControl(Scope scope) { return unregisterFrom(RegistrationRoot(scope), scope); }

}  // namespace activex
