#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "colorkey/ColourSteps.h"
#include "platform/colour.h"

namespace ModColor {

// The colour key prepared for many values: for every value the colour (or the run-time error) of
// KeyColour, found in a time that hardly depends on the number of divisions. It is a copy:
// later changes of the key are not seen.
class KeyLookup {
 public:
  KeyLookup();  // of ColorKey as it stands
  platform::Colour operator()(float value) const {
    return listsTooShort_ ? search(value) : steps_(value);
  }
  // Of many values, where nothing may fail.
  void lookUp(std::span<const float> values, std::span<platform::Colour> colours) const {
    steps_.lookUp(values, colours);
  }
  // Whether some value ends in a run-time error.
  bool mayFail() const { return listsTooShort_; }

 private:
  // From this bound up to the next stretch's the same division comes first.
  struct Stretch {
    float from;
    bool covered;  // false: no division holds these values
    platform::Colour colour;
  };
  bool addInOrder(int32_t count);
  void sweep(int32_t count);
  platform::Colour search(float value) const;

  std::vector<Stretch> stretches_;  // ascending
  ColourSteps steps_;
  bool listsTooShort_ = false;      // the count promises more divisions than the lists hold
};

// The colours of the cells of one drawing: through the key or through the ramp, as bUseKey says.
class CellColours {
 public:
  // Prepared for about that many cells: where they are many, a ramp is a list of steps too.
  explicit CellColours(std::size_t cells = 0);
  platform::Colour operator()(float value) const {
    if (ramp_) return (*ramp_)(value);
    return key_ ? (*key_)(value) : rampColour(value);
  }
  // Of many values, into as many places; where nothing may fail.
  void lookUp(std::span<const float> values, std::span<platform::Colour> colours) const;
  // Whether a number of at least this one can end in a run-time error; rather true than false.
  bool mayFail(float lowest) const;

 private:
  static platform::Colour rampColour(float value);

  std::optional<KeyLookup> key_;
  std::shared_ptr<const ColourSteps> ramp_;
};

}  // namespace ModColor
