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
  // Each one found settles the others in turn, in its own call's end.
  const auto waiting = std::find_if(bodies().begin(), bodies().end(),
                                    [](const Body* body) { return body->sizeWaits(); });
  if (waiting != bodies().end()) (*waiting)->applySize();
}

void MemberCall::add(Body& body) { bodies().push_back(&body); }
void MemberCall::remove(Body& body) { std::erase(bodies(), &body); }

}  // namespace activex
