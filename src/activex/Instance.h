#pragma once

#include <windows.h>

#include <ole2.h>

#include <cstdint>

#include "activex/Activation.h"
#include "activex/Body.h"
#include "activex/ComPtr.h"
#include "activex/DataSinks.h"
#include "activex/HostDesktop.h"
#include "activex/ViewSink.h"
#include "activex/dialogs/HostDialogs.h"

namespace activex {

// What the roles of one control share.
struct Instance {
  explicit Instance(IUnknown& object);

  // The client area is this many pixels; the extent follows unless it says the same already.
  void takeSize(int32_t width, int32_t height);
  // The extent that the host gives the control, in hundredths of a millimetre. It is kept to the
  // last digit; the pixels of an active control are those of its window.
  void takeExtent(const SIZEL& himetric);
  // Everything of the control is where its host keeps it now.
  void saved();
  // What is seen of the control is another thing now: tells its window and all sinks.
  void viewChanged();
  // Nothing was drawn yet, and the host is designing a form.
  bool showsPlaceholder() const;

  ComPtr<IOleClientSite> clientSite;
  ComPtr<IOleAdviseHolder> oleAdvise;
  DataSinks dataSinks;
  ViewSink view;
  SIZEL extent = {};
  bool dirty = false;
  bool drawn = false;   // a section or profiles, not just the white of their ground
  bool closed = false;  // since the host last had the control do anything
  Activation activation;
  HostDesktop desktop;
  HostDialogs dialogs;
  Body body;
};

}  // namespace activex
