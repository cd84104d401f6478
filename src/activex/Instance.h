#pragma once

#include <windows.h>

#include <ole2.h>

#include <cstdint>

#include "activex/Activation.h"
#include "activex/Body.h"
#include "activex/ComPtr.h"
#include "activex/HostDesktop.h"
#include "activex/ViewSink.h"
#include "activex/dialogs/HostDialogs.h"

namespace activex {

// What the roles of one control share.
struct Instance {
  explicit Instance(IUnknown& object);

  // The client area is this many pixels; the extent follows unless it says the same already.
  void takeSize(int32_t width, int32_t height);
  // The extent that the host gives the inactive control, in hundredths of a millimetre.
  void takeExtent(const SIZEL& himetric);

  ComPtr<IOleClientSite> clientSite;
  ComPtr<IOleAdviseHolder> oleAdvise;
  ComPtr<IDataAdviseHolder> dataAdvise;
  ViewSink view;
  SIZEL extent = {};
  bool dirty = false;
  Activation activation;
  HostDesktop desktop;
  HostDialogs dialogs;
  Body body;
};

}  // namespace activex
