#include "activex/Instance.h"

#include "activex/ambient.h"
#include "activex/himetric.h"
#include "section/sectionValues.h"

namespace activex {
namespace {

// Before any host has a say.
constexpr int32_t kWidth = 640, kHeight = 480;

}  // namespace

Instance::Instance(IUnknown& object)
    : dataSinks(object),
      activation(object, *this),
      desktop(activation),
      dialogs(activation),
      body(
          object, desktop, dialogs,
          [this] {
            drawn = drawn || !KelvaneMain::section_values.empty();
            viewChanged();
          },
          [this] { return activation.window(); }) {
  extent = himetricOf({kWidth, kHeight});
  dirty = true;
  // Most hosts give another size before they want a picture.
  body.resizeLater(kWidth, kHeight);
}

void Instance::takeSize(int32_t width, int32_t height) {
  if (const SIZE pixels = pixelsOf(extent); pixels.cx != width || pixels.cy != height) {
    extent = himetricOf({width, height});
    dirty = true;
  }
  body.resize(width, height);
}

void Instance::takeExtent(const SIZEL& himetric) {
  if (extent.cx == himetric.cx && extent.cy == himetric.cy) return;
  dirty = true;
  extent = himetric;
  // The window of an active control has the last word on its size. Before activation a host may
  // try several extents, some too small to draw in, of which only the last one counts.
  if (activation.active()) return;
  const SIZE pixels = pixelsOf(extent);
  body.resizeLater(pixels.cx, pixels.cy);
  view.changed();
  dataSinks.changed();
}

void Instance::saved() {
  dirty = false;
  if (const auto holder = oleAdvise) holder->SendOnSave();
}

void Instance::viewChanged() {
  activation.repaint();
  view.changed();
  dataSinks.changed();
}

bool Instance::showsPlaceholder() const {
  return !drawn && clientSite && !Ambient(clientSite).userMode();
}

}  // namespace activex
