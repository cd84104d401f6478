#include "activex/Instance.h"

#include "activex/dataChange.h"
#include "activex/himetric.h"

namespace activex {
namespace {

// Before any host has a say.
constexpr int32_t kWidth = 640, kHeight = 480;

}  // namespace

Instance::Instance(IUnknown& object)
    : activation(object, *this),
      desktop(activation),
      dialogs(activation),
      body(object, desktop, dialogs, [this, &object] {
        activation.repaint();
        view.changed();
        sendDataChange(object, dataAdvise);
      }) {
  takeSize(kWidth, kHeight);
}

void Instance::takeSize(int32_t width, int32_t height) {
  if (pixelsOf(extent.cx) != width || pixelsOf(extent.cy) != height) {
    extent = {himetricOf(width), himetricOf(height)};
    dirty = true;
  }
  body.resize(width, height);
}

void Instance::takeExtent(const SIZEL& himetric) {
  dirty = dirty || extent.cx != himetric.cx || extent.cy != himetric.cy;
  extent = himetric;
  // The window of an active control has the last word on its size. Before activation a host may
  // try several extents, some too small to draw in, of which only the last one counts.
  if (!activation.active()) body.resizeLater(pixelsOf(extent.cx), pixelsOf(extent.cy));
}

}  // namespace activex
