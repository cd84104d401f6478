#pragma once

namespace activex {

// The records that all controls of the process share, for one thread at a time. Controls normally
// live on one thread; a host with several gets its calls one after the other. A thread may take
// the lock again while it has it.
//
// No wait is without end, since the other thread may be waiting for this one: after two seconds,
// or as soon as the other shows a modal window, the lock is refused.
class StateLock {
 public:
  StateLock() noexcept;
  ~StateLock();
  StateLock(const StateLock&) = delete;
  StateLock& operator=(const StateLock&) = delete;

  bool taken() const { return taken_; }

 private:
  bool taken_;
};

// While one lives, a modal window is up, and nobody knows for how long.
class ModalWindow {
 public:
  ModalWindow() noexcept;
  ~ModalWindow();
  ModalWindow(const ModalWindow&) = delete;
  ModalWindow& operator=(const ModalWindow&) = delete;
};

}  // namespace activex
