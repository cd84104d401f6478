#include <windows.h>

#include <ocidl.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "TornDown.h"
#include "support/NcMaker.h"

// Hosts with traps for floating-point errors, with other roundings and precisions, and with errors
// that still wait to be raised. No call may be trapped, and none may change any of it.
namespace winetest {
namespace {

// The x87's control and status words and the state of the SSE unit.
struct FloatingPoint {
  uint16_t control = 0, status = 0;
  uint32_t sse = 0;
  bool operator==(const FloatingPoint&) const = default;
};

void PrintTo(const FloatingPoint& words, std::ostream* out) {
  *out << std::hex << words.control << " " << words.status << " " << words.sse << std::dec;
}

struct Environment {
  uint32_t words[7];  // as the processor lays it out: control, status, tags, ...
};

FloatingPoint current() {
  FloatingPoint words;
  __asm__ __volatile__("fnstcw %0" : "=m"(words.control));
  __asm__ __volatile__("fnstsw %0" : "=m"(words.status));
  __asm__ __volatile__("stmxcsr %0" : "=m"(words.sse));
  return words;
}

void set(const FloatingPoint& words) {
  Environment environment = {};
  __asm__ __volatile__("fnstenv %0" : "=m"(environment));
  environment.words[0] = (environment.words[0] & 0xFFFF0000U) | words.control;
  environment.words[1] = (environment.words[1] & 0xFFFF0000U) | words.status;
  __asm__ __volatile__("fnclex\n\tfldenv %0" : : "m"(environment));
  __asm__ __volatile__("ldmxcsr %0" : : "m"(words.sse));
}

// A host's environment for the extent of one call; what it was afterwards.
FloatingPoint during(const FloatingPoint& host, const std::function<void()>& call) {
  const FloatingPoint own = current();
  set(host);
  call();
  const FloatingPoint after = current();
  set(own);
  return after;
}

constexpr FloatingPoint kHosts[] = {
    {0x037F, 0x0000, 0x1F80},  // as most have it
    {0x1372, 0x0000, 0x1900},  // invalid operations, divisions by zero and overflows trap
    {0x0340, 0x0000, 0x0000},  // everything traps
    {0x0C7F, 0x0000, 0x7F80},  // rounded toward zero, in single precision
    {0x067F, 0x0000, 0xBF80},  // rounded down, in double precision
    {0x037F, 0x003F, 0x1FBF},  // every error has happened
    {0x0372, 0x8081, 0x1905},  // and two of them wait for the next instruction that they trap
};

class FloatingPointHosts : public TornDown {
 protected:
  FloatingPointHosts() {
    support::NcMaker nc(folder_.file("odd.nc"));
    const int time = nc.dim("time", NC_UNLIMITED), depth = nc.dim("depth", 3);
    const int lat = nc.dim("lat", 4), lon = nc.dim("lon", 4);
    const int timeVar = nc.var("time", NC_DOUBLE, {time});
    const int depthVar = nc.var("depth", NC_FLOAT, {depth});
    const int latVar = nc.var("lat", NC_FLOAT, {lat}), lonVar = nc.var("lon", NC_FLOAT, {lon});
    const int temp = nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
    nc.text(timeVar, "units", "hours since 1990-01-01 00:00:00");
    nc.text(depthVar, "units", "m");
    nc.text(latVar, "units", "degrees_north");
    nc.text(lonVar, "units", "degrees_east");
    nc.number(temp, "_FillValue", NC_FLOAT, {1e30});
    nc.putSlab(timeVar, {0}, {1}, {0});
    nc.put(depthVar, {0, 100, 1000});
    nc.put(latVar, {30, 31, 32, 33});
    nc.put(lonVar, {300, 301, 302, 303});
    std::vector<double> values;
    constexpr double odd[] = {1, std::numeric_limits<double>::quiet_NaN(), 1e30, 1e-40, -3, 1e37};
    for (int cell = 0; cell < 48; ++cell) values.push_back(odd[cell % 6]);
    nc.putSlab(temp, {0, 0, 0, 0}, {1, 3, 4, 4}, values);
  }

  template <class Call>
  void check(const char* what, Call&& call) {
    for (const FloatingPoint& host : kHosts) {
      EXPECT_EQ(during(host, call), host) << what;
    }
  }
};

TEST_F(FloatingPointHosts, GetTheirEnvironmentBackFromTheLibrary) {
  const auto path = libraryPath();
  check("loading and unloading", [&] { FreeLibrary(LoadLibraryW(path.c_str())); });
  check("DllCanUnloadNow", [&] { library_.canUnloadNow(); });
  check("making and dropping", [&] {
    host::ComOwner<IClassFactory> factory;
    host::ComOwner<IOleObject> object;
    library_.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
    factory->LockServer(TRUE);
    factory->LockServer(FALSE);
    factory->CreateInstance(nullptr, IID_IOleObject, object.receiveAny());
  });
}

TEST_F(FloatingPointHosts, GetTheirEnvironmentBackFromTheMembers) {
  host::ComOwner<_KelvaneCtl> members;
  object_->QueryInterface(__uuidof(_KelvaneCtl), members.receiveAny());
  const host::Value name(host::wide(folder_.file("odd.nc")));
  const BSTR text = V_BSTR(&const_cast<host::Value&>(name).variant());
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  const auto result = [](const std::function<void(VARIANT*)>& member) {
    return [member] {
      VARIANT place;
      VariantInit(&place);
      member(&place);
      VariantClear(&place);
    };
  };
  const auto textResult = [](const std::function<void(BSTR*)>& member) {
    return [member] {
      BSTR place = nullptr;
      member(&place);
      SysFreeString(place);
    };
  };
  VARIANT_BOOL flag = VARIANT_FALSE;
  LONG count = 0;
  activate();
  check("NcFile", result([&](VARIANT* place) { members->NcFile(text, place); }));
  check("NewSection", [&] { members->NewSection(); });
  check("AddSection", [&] { members->AddSection(nan, 1e38F); });
  check("EndSection", result([&](VARIANT* place) { members->EndSection(place); }));
  members->NewSection();
  check("AddSection", [&] { members->AddSection(300.5F, 30.5F); });
  members->AddSection(302.5F, 32.5F);
  check("EndSection", result([&](VARIANT* place) { members->EndSection(place); }));
  check("Draw", result([&](VARIANT* place) { members->Draw(place); }));
  check("AddColorKey", [&] { members->AddColorKey(nan, 1e38F, 255); });
  check("UseColorKey", [&] { members->put_UseColorKey(VARIANT_TRUE); });
  check("ReDraw", result([&](VARIANT* place) { members->ReDraw(place); }));
  check("NewColorKey", [&] { members->NewColorKey(); });
  check("UseColorKey", [&] { members->get_UseColorKey(&flag); });
  check("DrawProfile", [&] { members->put_DrawProfile(VARIANT_TRUE); });
  check("ReDraw", result([&](VARIANT* place) { members->ReDraw(place); }));
  check("DrawProfile", [&] { members->get_DrawProfile(&flag); });
  check("DrawVerticalSection", [&] { members->put_DrawVerticalSection(VARIANT_TRUE); });
  check("DrawVerticalSection", [&] { members->get_DrawVerticalSection(&flag); });
  check("SetCurrentTime", [&] { members->SetCurrentTime(1); });
  check("AdvanceTime", result([&](VARIANT* place) { members->AdvanceTime(1, place); }));
  check("SetVarByName", result([&](VARIANT* place) { members->SetVarByName(text, place); }));
  check("SetVarByOrder", result([&](VARIANT* place) { members->SetVarByOrder(1, place); }));
  check("KewFile", result([&](VARIANT* place) { members->KewFile(text, place); }));
  check("ErrorMessage", textResult([&](BSTR* place) { members->get_ErrorMessage(place); }));
  check("ItemName", textResult([&](BSTR* place) { members->ItemName(1, place); }));
  check("NumDrawAbleItems", [&] { members->get_NumDrawAbleItems(&count); });
  EXPECT_EQ(count, 1);
  check("InitColorKey", [&] { members->InitColorKey(); });
}

TEST_F(FloatingPointHosts, GetTheirEnvironmentBackFromCallsByName) {
  Caller caller(members_.get());
  UINT count = 0;
  check("GetTypeInfoCount", [&] { members_->GetTypeInfoCount(&count); });
  check("GetTypeInfo", [&] {
    host::ComOwner<ITypeInfo> info;
    members_->GetTypeInfo(0, 0, info.receive());
  });
  check("GetIDsOfNames", [&] { caller.id(L"Draw"); });
  check("Draw", [&] { caller.call(L"Draw"); });
  for (const Sent& odd : {Sent(std::nan("")), Sent(1e300), Sent(Value(L"1e39")), Sent(1e-320)}) {
    check("AddSection", [&] { caller.call(L"AddSection", {odd, odd}); });
    check("ItemName", [&] { caller.call(L"ItemName", {odd}); });
  }
}

TEST_F(FloatingPointHosts, GetTheirEnvironmentBackFromTheOtherInterfaces) {
  SIZEL extent = {};
  RECT place = {0, 0, 111, 77};
  HWND window = nullptr;
  object_->SetClientSite(nullptr);
  check("SetClientSite", [&] { object_->SetClientSite(site_.get()); });
  for (const LONG verb : {OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, OLEIVERB_HIDE}) {
    check("DoVerb", [&] {
      object_->DoVerb(verb, nullptr, site_.get(), 0, form_->handle(), nullptr);
    });
  }
  activate();
  check("SetExtent", [&] {
    extent.cx += 1234;
    extent.cy += 567;
    object_->SetExtent(DVASPECT_CONTENT, &extent);
  });
  check("GetExtent", [&] { object_->GetExtent(DVASPECT_CONTENT, &extent); });
  check("view GetExtent", [&] { view_->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent); });
  check("SetAdvise", [&] { view_->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, nullptr); });
  check("GetWindow", [&] { inPlace_->GetWindow(&window); });
  check("SetObjectRects", [&] {
    --place.right;
    inPlace_->SetObjectRects(&place, &place);
  });
  check("UIDeactivate", [&] { inPlace_->UIDeactivate(); });
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  ReleaseDC(nullptr, screen);
  const RECTL bounds = {0, 0, 33, 77};
  check("view Draw", [&] {
    view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr,
                nullptr, 0);
  });
  DeleteDC(memory);
  host::ComOwner<IDataObject> data;
  object_->QueryInterface(IID_IDataObject, data.receiveAny());
  for (const auto& [kind, medium] :
       {std::pair{CF_DIB, TYMED_HGLOBAL}, std::pair{CF_BITMAP, TYMED_GDI},
        std::pair{CF_ENHMETAFILE, TYMED_ENHMF}, std::pair{CF_METAFILEPICT, TYMED_MFPICT}}) {
    FORMATETC format = {static_cast<CLIPFORMAT>(kind), nullptr, DVASPECT_CONTENT, -1,
                        static_cast<DWORD>(medium)};
    check("GetData", [&] {
      STGMEDIUM given = {};
      data->GetData(&format, &given);
      ReleaseStgMedium(&given);
    });
  }
  host::ComOwner<IPersistStreamInit> persist;
  object_->QueryInterface(IID_IPersistStreamInit, persist.receiveAny());
  check("Save and Load", [&] {
    host::ComOwner<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.receive());
    persist->Save(stream.get(), TRUE);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    persist->Load(stream.get());
  });
  check("Close", [&] { object_->Close(OLECLOSE_NOSAVE); });
}

// The window's procedure is called by the system, in the host's environment as well.
TEST_F(FloatingPointHosts, GetTheirEnvironmentBackFromTheWindow) {
  activate();
  const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window(), GWLP_WNDPROC));
  const HWND own = window();
  const HDC dc = GetDC(own);
  for (const UINT message :
       {UINT{WM_PAINT}, UINT{WM_ERASEBKGND}, UINT{WM_PRINTCLIENT}, UINT{WM_SIZE},
        UINT{WM_LBUTTONDOWN}, UINT{WM_SETFOCUS}, UINT{WM_KILLFOCUS}, UINT{WM_NULL}}) {
    const WPARAM wide = message == WM_PRINTCLIENT ? reinterpret_cast<WPARAM>(dc) : 0;
    WORD side = 100;
    check("message", [&] {
      InvalidateRect(own, nullptr, FALSE);
      ++side;
      CallWindowProcW(procedure, own, message, wide, MAKELPARAM(side, side));
    });
  }
  ReleaseDC(own, dc);
}

}  // namespace
}  // namespace winetest
