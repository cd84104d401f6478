#pragma once

#include <cstdint>
#include <vector>

#include "platform/PictureBox.h"

namespace ModColor {

// The colour key prepared for many values: the same colour as KeyColour for every value, found
// in a number of steps that grows with the logarithm of the divisions. It is a copy: changes of
// the key after the preparation are not seen.
class KeyLookup {
 public:
  KeyLookup();  // of ColorKey as it stands
  platform::Colour operator()(float value) const;

 private:
  // From breaks_[n] (inclusive) up to breaks_[n + 1] (exclusive) the colour is colours_[n].
  std::vector<float> breaks_;
  std::vector<platform::Colour> colours_;
};

// The colours of the cells of one drawing: through the key or through the ramp, as bUseKey says.
class CellColours {
 public:
  CellColours();
  platform::Colour operator()(float value) const;

 private:
  bool useKey_;
  KeyLookup key_;
};

}  // namespace ModColor
