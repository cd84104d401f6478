// Makes, uses and drops the control again and again, and draws again and again, and watches what
// the process holds meanwhile.
//
//     soak_tests [CYCLES [REDRAWS]]
//
// A cycle is a control from its making to its end: opens the sample, builds a section, reads and
// draws it. Every other one is active on a form, the others are drawn without one. A redraw is a
// call of ReDraw, or, every tenth, of AdvanceTime, which opens and reads the sample.
// Exit status 0 when nothing has grown since the warm-up, the first tenth; 1 when something has.
#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <vector>

#include "../TestSite.h"
#include "../control.h"
#include "../library.h"
#include "Counts.h"
#include "Dispatch.h"
#include "Form.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

constexpr int kWidth = 320, kHeight = 240;
constexpr int kPoints = 10;  // of measurement, after the warm-up
// The allocator's and the system's own stores come and go by this much.
constexpr std::size_t kNoiseKilobytes = 512;

class Soak {
 public:
  Soak() : library_() {
    support::makeTinySet(folder_.file("tiny.nc"));
    library_.getClassObject(kClassId, IID_IClassFactory, factory_.receiveAny());
  }

  void cycle(int number) {
    const bool onForm = number % 2 == 0;
    host::ComOwner<IOleObject> object;
    host::require(factory_->CreateInstance(nullptr, IID_IOleObject, object.receiveAny()),
                  "no control");
    TestSite site(form_.handle());
    object->SetClientSite(&site);
    {
      host::Object control(object.get());
      if (onForm) {
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, form_.handle(), nullptr);
      } else {
        host::setExtent(control, kWidth, kHeight);
      }
      prepare(control);
      if (onForm) {
        // Moved by its host, and painted on the way.
        RECT place = {10, 10, 10 + kWidth - number % 50, 10 + kHeight};
        host::ComOwner<IOleInPlaceObject> inPlace;
        object->QueryInterface(IID_IOleInPlaceObject, inPlace.receiveAny());
        inPlace->SetObjectRects(&place, &site.clip);
        pump();
      } else {
        host::drawWithoutForm(control, kWidth, kHeight);
      }
    }
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    const ULONG left = object.release();
    if (left != 0 || site.references != 1) throw std::runtime_error("references are left");
  }

  void startRedraws() {
    factory_->CreateInstance(nullptr, IID_IDispatch, drawn_.receiveAny());
    host::ComOwner<IOleObject> object;
    drawn_->QueryInterface(IID_IOleObject, object.receiveAny());
    object->SetClientSite(&site_);
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, form_.handle(), nullptr);
    host::Object control(drawn_.get());
    prepare(control);
  }
  void redraw(int number) {
    host::Object control(drawn_.get());
    if (number % 10 == 0) {
      control.call(L"AdvanceTime", {1});
    } else {
      control.call(L"ReDraw");
    }
    pump();
    if (number % 1000 == 0) site_.calls.clear();
  }
  void endRedraws() {
    host::ComOwner<IOleObject> object;
    drawn_->QueryInterface(IID_IOleObject, object.receiveAny());
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    object.reset();
    drawn_.reset();
  }

  // The control's library knows of no object any more.
  bool unused() {
    factory_.reset();
    const bool none = library_.canUnloadNow() == S_OK;
    library_.getClassObject(kClassId, IID_IClassFactory, factory_.receiveAny());
    return none;
  }

 private:
  void prepare(host::Object& control) {
    if (control.call(L"NcFile", {host::wide(folder_.file("tiny.nc"))}).number() != 1) {
      throw std::runtime_error("the sample is not opened");
    }
    control.call(L"NewSection");
    control.call(L"AddSection", {354.5, -1.0});
    control.call(L"AddSection", {354.5, 0.4});
    if (control.call(L"EndSection").number() != 1) throw std::runtime_error("no section");
    control.call(L"Draw");
  }
  static void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }

  support::TempFolder folder_;
  Library library_;
  host::ComOwner<IClassFactory> factory_;
  TestWindow form_;
  TestSite site_{form_.handle()};
  host::ComOwner<IDispatch> drawn_;
};

void print(const char* what, int done, const Counts& counts, DWORD milliseconds) {
  std::printf("%-8s %7d %8d %8d %6d %5d %8zu KiB %7lu ms\n", what, done, counts.handles,
              counts.windows, counts.userObjects, counts.gdiObjects, counts.privateKilobytes,
              milliseconds);
  std::fflush(stdout);
}

// Does it so many times. True when nothing has grown since the first tenth.
bool watch(const char* what, int times, const std::function<void(int)>& once) {
  std::vector<Counts> points;
  const DWORD start = GetTickCount();
  const int step = std::max(1, times / (kPoints + 1));
  for (int done = 1; done <= times; ++done) {
    once(done);
    if (done % step != 0) continue;
    points.push_back(Counts::now());
    print(what, done, points.back(), GetTickCount() - start);
  }
  const Counts& first = points.front();
  const bool flat = std::all_of(points.begin(), points.end(), [&](const Counts& later) {
    return later.handles <= first.handles && later.windows <= first.windows &&
           later.userObjects <= first.userObjects && later.gdiObjects <= first.gdiObjects;
  });
  // The lowest of the second half: what is held for good cannot go below it.
  const auto middle = points.begin() + static_cast<std::ptrdiff_t>(points.size() / 2);
  std::size_t least = middle->privateKilobytes;
  std::for_each(middle, points.end(),
                [&](const Counts& later) { least = std::min(least, later.privateKilobytes); });
  const bool small = least <= first.privateKilobytes + kNoiseKilobytes;
  if (!flat) std::printf("%s: objects have grown\n", what);
  if (!small) std::printf("%s: memory has grown\n", what);
  return flat && small;
}

int run(int cycles, int redraws) {
  Soak soak;
  std::printf("%-8s %7s %8s %8s %6s %5s %12s %10s\n", "", "done", "handles", "windows", "user",
              "GDI", "private", "time");
  bool good = watch("cycles", cycles, [&](int number) { soak.cycle(number); });
  if (!soak.unused()) {
    std::printf("objects of the control are left\n");
    good = false;
  }
  soak.startRedraws();
  good = watch("redraws", redraws, [&](int number) { soak.redraw(number); }) && good;
  soak.endRedraws();
  if (!soak.unused()) {
    std::printf("objects of the control are left\n");
    good = false;
  }
  std::printf("%s\n", good ? "nothing has grown" : "something has grown");
  return good ? 0 : 1;
}

}  // namespace
}  // namespace winetest

int main(int argc, char** argv) {
  const int cycles = argc > 1 ? std::atoi(argv[1]) : 1000;
  const int redraws = argc > 2 ? std::atoi(argv[2]) : 10 * cycles;
  if (cycles < 20 || redraws < 20) {
    std::fprintf(stderr, "usage: soak_tests [CYCLES [REDRAWS]], each at least 20\n");
    return 2;
  }
  OleInitialize(nullptr);
  int status = 2;
  try {
    status = winetest::run(cycles, redraws);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "soak_tests: %s\n", error.what());
  }
  OleUninitialize();
  return status;
}
