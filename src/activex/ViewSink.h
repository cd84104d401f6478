#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/ComPtr.h"

namespace activex {

// Who wants to hear that the picture has changed: one at most, for the content aspect. Flags:
// ADVF_PRIMEFIRST tells at once, ADVF_ONLYONCE the first time only; others make no difference.
class ViewSink {
 public:
  void set(DWORD aspects, DWORD flags, IAdviseSink* sink);
  void get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;
  void changed();

 private:
  DWORD aspects_ = 0, flags_ = 0;
  ComPtr<IAdviseSink> sink_;
};

}  // namespace activex
