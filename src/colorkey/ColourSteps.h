#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/colour.h"

namespace ModColor {

// A colour that changes at certain values and stays the same between them, looked up in a time
// that hardly depends on their number: the range of the values is cut into equal parts, and each
// of them knows the few steps inside of it.
class ColourSteps {
 public:
  // From a value on, the colour.
  struct Step {
    float from = 0;
    platform::Colour colour = 0;
  };

  ColourSteps() = default;
  // The colour below all steps, and of NaN; the steps, ascending.
  ColourSteps(platform::Colour lowest, std::span<const Step> steps);

  platform::Colour operator()(float value) const {
    if (!onePerPart_) return search(value);
    return colourIn(part(value), value);
  }

  // The colours of many values, into as many places.
  void lookUp(std::span<const float> values, std::span<platform::Colour> colours) const;

 private:
  // A part with one step or none in it: where the step is, and the colour below. From the step
  // on the colour is that of the next part.
  struct Part {
    float bound;
    platform::Colour below;
  };
  platform::Colour colourIn(int32_t part, float value) const {
    const Part* const in = parts_.data() + part;
    return in[in->bound <= value ? 1 : 0].below;
  }

  // Rounding is monotone, so that a larger value never falls into a part further down.
  int32_t part(float value) const {
    const float place = (value - lowest_) * partsPerUnit_;
    const float notBelow = place > 0.0F ? place : 0.0F;  // NaN is below too
    return static_cast<int32_t>(notBelow < lastPart_ ? notBelow : lastPart_);
  }
  platform::Colour search(float value) const;

  std::vector<Step> steps_;
  std::vector<uint32_t> firstStep_;  // of each part; one more than there are parts
  std::vector<Part> parts_;          // when none has more than one step, and one behind the last
  platform::Colour colourBelow_ = 0;
  float lowest_ = 0, partsPerUnit_ = 0, lastPart_ = 0;
  bool onePerPart_ = true;
};

}  // namespace ModColor
