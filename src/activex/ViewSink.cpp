#include "activex/ViewSink.h"

namespace activex {

void ViewSink::set(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  aspects_ = aspects;
  flags_ = flags;
  sink_ = ComPtr<IAdviseSink>(sink);
  if ((flags & ADVF_PRIMEFIRST) != 0) changed();
}

void ViewSink::get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
  if (aspects != nullptr) *aspects = aspects_;
  if (flags != nullptr) *flags = flags_;
  if (sink != nullptr) *sink = ComPtr<IAdviseSink>(sink_).detach();
}

void ViewSink::changed() {
  if (!sink_ || (aspects_ & DVASPECT_CONTENT) == 0) return;
  const ComPtr<IAdviseSink> sink = sink_;
  if ((flags_ & ADVF_ONLYONCE) != 0) sink_.reset();
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace activex
