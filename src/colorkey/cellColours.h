#pragma once

#include <optional>
#include <vector>

#include "platform/PictureBox.h"

namespace ModColor {

// The colour key prepared for many values: for every value the colour (or the run-time error) of
// KeyColour, found in a number of steps that grows with the logarithm of the divisions. It is a
// copy: later changes of the key are not seen.
class KeyLookup {
 public:
  KeyLookup();  // of ColorKey as it stands
  platform::Colour operator()(float value) const;

 private:
  // From this bound up to the next stretch's the same division comes first.
  struct Stretch {
    float from;
    bool covered;  // false: no division holds these values
    platform::Colour colour;
  };
  platform::Colour outside() const;

  std::vector<Stretch> stretches_;  // ascending
  bool listsTooShort_ = false;      // the count promises more divisions than the lists hold
};

// The colours of the cells of one drawing: through the key or through the ramp, as bUseKey says.
class CellColours {
 public:
  CellColours();
  platform::Colour operator()(float value) const;

 private:
  std::optional<KeyLookup> key_;
};

}  // namespace ModColor
