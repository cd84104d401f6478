#include "activex/MemberCall.h"

#include <windows.h>

#include <algorithm>
#include <mutex>
#include <vector>

#include "activex/Body.h"

namespace activex {
namespace {

bool running = false;  // the state's lock must be held

// The controls of all threads, under a lock of their own that is never held for long.
class Bodies {
 public:
  void add(Body& body) {
    const std::lock_guard lock(mutex_);
    all_.push_back(&body);
  }
  void remove(Body& body) {
    const std::lock_guard lock(mutex_);
    std::erase(all_, &body);
  }
  // One of this thread whose size waits, or null. Only its own thread can take it away.
  Body* nextOfThisThread() {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(all_.begin(), all_.end(), [](const Body* body) {
      return body->ofThisThread() && body->sizeWaits();
    });
    return found != all_.end() ? *found : nullptr;
  }
  void wakeOtherThreads() {
    const std::lock_guard lock(mutex_);
    for (const Body* body : all_) {
      if (!body->ofThisThread() && body->sizeWaits()) body->wake();
    }
  }

 private:
  std::mutex mutex_;
  std::vector<Body*> all_;
};

Bodies& bodies() {
  static Bodies all;
  return all;
}

}  // namespace

MemberCall::MemberCall() : entered_(state_.taken() && !running) {
  if (entered_) running = true;
}

MemberCall::~MemberCall() {
  if (!entered_) return;
  running = false;
  // A size given during the drawing at another one ends up here again; none is left waiting.
  for (Body* next = bodies().nextOfThisThread(); next != nullptr && !running;
       next = bodies().nextOfThisThread()) {
    next->applySize();
  }
  bodies().wakeOtherThreads();
}

void MemberCall::add(Body& body) { bodies().add(body); }
void MemberCall::remove(Body& body) { bodies().remove(body); }

}  // namespace activex
