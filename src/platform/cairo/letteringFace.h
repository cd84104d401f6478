#pragma once

#include "platform/cairo/cairoHandles.h"

namespace platform {

// The face that all pictures are lettered in, Liberation Sans: taken straight from its file where
// the distribution puts it, which is quick, or else looked up among the system's fonts.
CairoFontFace letteringFace(bool bold, bool italic);

}  // namespace platform
