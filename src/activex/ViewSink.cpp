#include "activex/ViewSink.h"

namespace activex {

void ViewSink::set(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  aspects_ = sink != nullptr ? aspects : 0;
  flags_ = sink != nullptr ? flags : 0;
  sink_ = ComPtr<IAdviseSink>(sink);
  if ((flags_ & ADVF_PRIMEFIRST) != 0) changed();
}

void ViewSink::get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
  if (aspects != nullptr) *aspects = aspects_;
  if (flags != nullptr) *flags = flags_;
  if (sink != nullptr) *sink = ComPtr<IAdviseSink>(sink_).detach();
}

void ViewSink::changed() {
  if (!sink_) return;
  const ComPtr<IAdviseSink> sink = sink_;
  // First, since what the sink does now may change the picture again.
  if ((flags_ & ADVF_ONLYONCE) != 0) set(0, 0, nullptr);
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace activex
