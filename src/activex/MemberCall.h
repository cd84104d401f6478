#pragma once

#include "activex/StateLock.h"

namespace activex {

class Body;

// The members and redraws of all controls work on the same records, so one runs at a time. A
// message box inside one lets the host run: what it asks of a control then is refused, and a new
// size waits until the member has ended.
class MemberCall {
 public:
  MemberCall();
  ~MemberCall();
  MemberCall(const MemberCall&) = delete;
  MemberCall& operator=(const MemberCall&) = delete;

  // False when another member is still running.
  bool entered() const { return entered_; }

  // Controls tell of themselves here, to be given their size afterwards.
  static void add(Body& body);
  static void remove(Body& body);

 private:
  StateLock state_;
  bool entered_;
};

}  // namespace activex
