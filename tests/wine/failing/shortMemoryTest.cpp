#include <gtest/gtest.h>
#include <windows.h>

#include <ocidl.h>
#include <ole2.h>

#include <cstring>
#include <functional>
#include <stdexcept>

#include "../gdiObjects.h"
#include "BoxAnswerer.h"
#include "ComOwner.h"
#include "control.h"
#include "library.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

using host::ComOwner;

constexpr unsigned kMost = 100'000;

class Text {
 public:
  explicit Text(const std::wstring& text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  BSTR get() const { return text_; }

 private:
  BSTR text_;
};

// A control whose memory ends on demand, from a library of its own.
class ShortControl {
 public:
  ShortControl() : module_(LoadLibraryW((programFolder() + L"\\KelvaneShort.dll").c_str())) {
    if (module_ == nullptr) throw std::runtime_error("the library does not load");
    find("DllGetClassObject", getClassObject_);
    find("kelvaneBeginShortage", begin_);
    find("kelvaneEndShortage", end_);
    find("kelvaneAllocationsHeld", held_);
  }
  ~ShortControl() {
    members.reset();
    FreeLibrary(module_);
  }
  ShortControl(const ShortControl&) = delete;
  ShortControl& operator=(const ShortControl&) = delete;

  HRESULT create() {
    members.reset();
    ComOwner<IClassFactory> factory;
    const HRESULT code = getClassObject_(kClassId, IID_IClassFactory, factory.receiveAny());
    return FAILED(code) ? code
                        : factory->CreateInstance(nullptr, __uuidof(_KelvaneCtl),
                                                  members.receiveAny());
  }
  void begin(unsigned n, bool goesOn) { begin_(n, goesOn); }
  bool end() { return end_() != 0; }
  int held() { return held_(); }

  ComOwner<_KelvaneCtl> members;

 private:
  template <class Call>
  void find(const char* name, Call& call) {
    const FARPROC found = GetProcAddress(module_, name);
    if (found == nullptr) throw std::runtime_error(name);
    static_assert(sizeof call == sizeof found);
    std::memcpy(&call, &found, sizeof call);
  }

  HMODULE module_;
  HRESULT(WINAPI* getClassObject_)(REFCLSID, REFIID, void**) = nullptr;
  void (*begin_)(unsigned, int) = nullptr;
  int (*end_)() = nullptr;
  int (*held_)() = nullptr;
};

// Another interface of an object, for one call.
template <class Interface>
class RoleOf {
 public:
  explicit RoleOf(IUnknown* object) {
    object->QueryInterface(__uuidof(Interface), role_.receiveAny());
  }
  Interface* operator->() const { return role_.get(); }

 private:
  ComOwner<Interface> role_;
};

class ShortMemory : public testing::Test {
 protected:
  ShortMemory() {
    support::makeTinySet(folder_.file("tiny.nc"));
    EXPECT_EQ(control_.create(), S_OK);
    // The system keeps what it makes for its first message box; it is none of the control's.
    MessageBoxW(nullptr, L"first", L"first", MB_OK);
  }

  // The picture is drawn; the last code.
  HRESULT draw() {
    VARIANT result;
    _KelvaneCtl* const members = control_.members.get();
    HRESULT code = members->NcFile(set_.get(), &result);
    if (code != S_OK || V_I2(&result) != 1) return code == S_OK ? S_FALSE : code;
    members->NewSection();
    members->AddSection(350, 0);
    members->AddSection(358, 0);
    code = members->EndSection(&result);
    if (code != S_OK || V_I2(&result) != 1) return code == S_OK ? S_FALSE : code;
    return members->Draw(&result);
  }

  // Calls with every single allocation failing, and with all from there on: each call ends, with a
  // failure or without; afterwards the control draws, and the same call works.
  void inEveryShortage(const std::function<HRESULT()>& call) {
    ASSERT_EQ(draw(), S_OK);
    ASSERT_GE(call(), S_OK);
    for (const bool goesOn : {false, true}) {
      const int held = heldAfterwards(call);
      const int objects = gdiObjects();
      unsigned n = 0;
      for (bool met = true; met && n < kMost;) {
        ++n;
        SCOPED_TRACE(testing::Message() << "allocation " << n << (goesOn ? "..." : ""));
        control_.begin(n, goesOn);
        const HRESULT code = call();
        met = control_.end();
        if (!met) {
          EXPECT_GE(code, S_OK);
        }
        if (FAILED(code)) ++failures_;
        ASSERT_EQ(draw(), S_OK);
        ASSERT_GE(call(), S_OK);
      }
      shortages_ += static_cast<int>(n) - 1;
      // What is made once and kept, by a first message box for one, is nothing lost.
      constexpr int kKept = 5;
      EXPECT_LE(heldAfterwards(call), held + kKept) << "lost in " << n;
      EXPECT_LE(gdiObjects(), objects + kKept) << "lost in " << n;
    }
    RecordProperty("shortages", shortages_);
    RecordProperty("refusals", failures_);
  }
  int heldAfterwards(const std::function<HRESULT()>& call) {
    draw();
    call();
    return control_.held();
  }
  template <class Interface>
  RoleOf<Interface> as() {
    return RoleOf<Interface>(control_.members.get());
  }

  host::BoxAnswerer answerer_;
  support::TempFolder folder_;
  ShortControl control_;
  Text set_{folder_.path().wstring() + L"\\tiny.nc"};
  Text keys_{folder_.path().wstring() + L"\\tiny.KEW"};
  Text name_{L"salt"};
  VARIANT result_ = {};

 private:
  int shortages_ = 0, failures_ = 0;
};

// What a member that gives a text gave.
HRESULT dropped(HRESULT code, BSTR text) {
  SysFreeString(text);
  return code;
}

TEST_F(ShortMemory, Members) {
  _KelvaneCtl* const members = control_.members.get();
  const std::function<HRESULT()> calls[] = {
      [&] { return members->NcFile(set_.get(), &result_); },
      [&] { return members->SetVarByName(name_.get(), &result_); },
      [&] { return members->SetVarByOrder(2, &result_); },
      [&] { return members->AddSection(354, 0); },
      [&] { return members->EndSection(&result_); },
      [&] { return members->Draw(&result_); },
      [&] { return members->ReDraw(&result_); },
      [&] { return members->AdvanceTime(1, &result_); },
      [&] { return members->SetCurrentTime(1); },
      [&] { return members->AddColorKey(0, 10, 255); },
      [&] { return members->InitColorKey(); },
      [&] { return members->KewFile(keys_.get(), &result_); },
      [&] {
        BSTR text = nullptr;
        const HRESULT code = members->get_ErrorMessage(&text);
        return dropped(code, text);
      },
      [&] {
        BSTR text = nullptr;
        const HRESULT code = members->ItemName(1, &text);
        return dropped(code, text);
      }};
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    SCOPED_TRACE(testing::Message() << "call " << i);
    members->NewColorKey();
    inEveryShortage(calls[i]);
  }
}

TEST_F(ShortMemory, MembersByName) {
  inEveryShortage([&] {
    LPOLESTR name = const_cast<LPOLESTR>(L"SetVarByOrder");
    DISPID id = 0;
    const HRESULT named = control_.members->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);
    if (FAILED(named)) return named;
    VARIANT argument;
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = 1;
    DISPPARAMS parameters = {&argument, nullptr, 1, 0};
    EXCEPINFO exception = {};
    const HRESULT code = control_.members->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                                  &result_, &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    return code;
  });
}

TEST_F(ShortMemory, MakingAControl) {
  inEveryShortage([&] {
    ShortControl other;
    return other.create();
  });
}

TEST_F(ShortMemory, RolesOfTheControl) {
  const RECTL bounds = {0, 0, 200, 100};
  const std::function<HRESULT()> calls[] = {
      [&] {
        const HDC dc = CreateCompatibleDC(nullptr);
        const HRESULT code = as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr,
                                                      nullptr, dc, &bounds, nullptr, nullptr, 0);
        DeleteDC(dc);
        return code;
      },
      [&] {
        FORMATETC format = {CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        STGMEDIUM medium = {};
        const HRESULT code = as<IDataObject>()->GetData(&format, &medium);
        if (code == S_OK) ReleaseStgMedium(&medium);
        return code;
      },
      [&] {
        FORMATETC format = {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
        STGMEDIUM medium = {};
        const HRESULT code = as<IDataObject>()->GetData(&format, &medium);
        if (code == S_OK) ReleaseStgMedium(&medium);
        return code;
      },
      [&] {
        ComOwner<IEnumFORMATETC> formats;
        return as<IDataObject>()->EnumFormatEtc(DATADIR_GET, formats.receive());
      },
      [&] {
        ComOwner<IEnumOLEVERB> verbs;
        return as<IOleObject>()->EnumVerbs(verbs.receive());
      },
      [&] {
        ComOwner<IEnumConnectionPoints> points;
        return as<IConnectionPointContainer>()->EnumConnectionPoints(points.receive());
      },
      [&] {
        ComOwner<ITypeInfo> info;
        return as<IProvideClassInfo>()->GetClassInfo(info.receive());
      },
      [&] {
        ComOwner<IStream> stream;
        if (CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()) != S_OK) return E_FAIL;
        const HRESULT code = as<IPersistStreamInit>()->Save(stream.get(), TRUE);
        if (FAILED(code)) return code;
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        return as<IPersistStreamInit>()->Load(stream.get());
      },
      [&] {
        SIZEL extent = {6000, 4000};
        as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
        extent = {8000, 5000};
        return as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
      }};
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    SCOPED_TRACE(testing::Message() << "call " << i);
    inEveryShortage(calls[i]);
  }
}

}  // namespace
}  // namespace winetest
