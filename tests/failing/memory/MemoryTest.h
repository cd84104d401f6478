#pragma once

#include <functional>
#include <string>

#include "support/ScriptedDialogs.h"
#include "unit/control/ControlTest.h"

namespace failing {

// Members of the control in a process that runs out of memory.
class MemoryTest : public ControlTest {
 protected:
  enum class RunTimeError { Never, Allowed };

  // A call of a member, with what has to be there before it. The call returns the member's result,
  // 1 when it has none.
  struct Member {
    std::function<void()> before;
    std::function<int()> call;
    RunTimeError runTimeError = RunTimeError::Never;
    int success = 1;
    std::string alsoTold = "";  // another text that a failure may leave in LastError
    bool asks = true;           // for memory at all
  };

  // Makes the call with every single one of its allocations failing, and with all from there on
  // failing. Each time the member fails in its own way and says why, or does everything all the
  // same; the other members can then be called, the same call works once memory is there again,
  // and nothing has been lost.
  void inEveryShortage(const Member& member);

  // Everything that a user can see.
  std::string everything() const;
  std::string contentsOf(const std::string& name) const;

  support::ScriptedDialogs dialogs;
  control::KelvaneCtl shown{boxes.pictures(), desktop, dialogs};
  std::string keyFile;  // one whose contents belong to everything

 private:
  void begin(const Member& member);
  void checkFailure(const Member& member, int result, const std::string& thrown,
                    const std::string& good);
  void useEverything();
  int shortages_ = 0;  // how many calls ran out of memory
  int failures_ = 0;  // no more than a few are told
};

}  // namespace failing
