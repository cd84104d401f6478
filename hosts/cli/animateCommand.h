#pragma once

#include "framePattern.h"
#include "Plotter.h"

namespace cli {

struct AnimateRequest {
  PictureRequest picture;
  StepRange steps;
  FramePattern output;
};

// Draws every time step of the range into a file of its own, numbered by the step, with the
// plotting range of the first one. A failure leaves the frames before it.
void animate(const AnimateRequest& request);

}  // namespace cli
