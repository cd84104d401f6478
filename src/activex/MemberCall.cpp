#include "activex/MemberCall.h"

#include <algorithm>
#include <vector>

#include "activex/Body.h"

namespace activex {
namespace {

bool running = false;

std::vector<Body*>& bodies() {
  static std::vector<Body*> all;
  return all;
}

}  // namespace

MemberCall::MemberCall() : entered_(!running) { running = true; }

MemberCall::~MemberCall() {
  if (!entered_) return;
  running = false;
  // A size given during the drawing at another one ends up here again; none is left waiting.
  const auto waits = [](const Body* body) { return body->sizeWaits(); };
  for (auto next = std::find_if(bodies().begin(), bodies().end(), waits);
       next != bodies().end() && !running;
       next = std::find_if(bodies().begin(), bodies().end(), waits)) {
    (*next)->applySize();
  }
}

void MemberCall::add(Body& body) { bodies().push_back(&body); }
void MemberCall::remove(Body& body) { std::erase(bodies(), &body); }

}  // namespace activex
