#include "activex/StateLock.h"

#include <windows.h>

namespace activex {
namespace {

constexpr ULONGLONG kPatience = 2000;  // milliseconds

// The locks of the system that need no handle and no tidying up.
SRWLOCK guard = {};
CONDITION_VARIABLE changed = {};
DWORD owner = 0;  // a thread's identifier; 0 when nobody has the records
int depth = 0;
int modalWindows = 0;

// Waits for a change until then. False when it is over.
bool waitUntil(ULONGLONG end) {
  const ULONGLONG now = GetTickCount64();
  if (now >= end) return false;
  SleepConditionVariableSRW(&changed, &guard, static_cast<DWORD>(end - now), 0);
  return true;
}

}  // namespace

StateLock::StateLock() noexcept {
  const DWORD self = GetCurrentThreadId();
  const ULONGLONG end = GetTickCount64() + kPatience;
  AcquireSRWLockExclusive(&guard);
  const auto free = [&] { return owner == 0 || owner == self; };
  while (!free() && modalWindows == 0 && waitUntil(end)) {
  }
  taken_ = free();
  if (taken_) {
    owner = self;
    ++depth;
  }
  ReleaseSRWLockExclusive(&guard);
}

StateLock::~StateLock() {
  if (!taken_) return;
  AcquireSRWLockExclusive(&guard);
  if (--depth == 0) {
    owner = 0;
    WakeAllConditionVariable(&changed);
  }
  ReleaseSRWLockExclusive(&guard);
}

ModalWindow::ModalWindow() noexcept {
  AcquireSRWLockExclusive(&guard);
  ++modalWindows;
  WakeAllConditionVariable(&changed);
  ReleaseSRWLockExclusive(&guard);
}

ModalWindow::~ModalWindow() {
  AcquireSRWLockExclusive(&guard);
  --modalWindows;
  ReleaseSRWLockExclusive(&guard);
}

}  // namespace activex
