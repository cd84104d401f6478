#pragma once

#include <memory>
#include <vector>

#include "colorkey/ColourSteps.h"

namespace ModColor {

// Whether rampSteps() can be had: the value range is a finite number above 0.
bool hasRampSteps();

// The values at which the colour of the built-in ramp changes, ascending, exactly as RampColour
// of valueFraction has it for ValueMin, ValueSpan, RampDirection and bUseKey as they stand. The
// colour below the first step is that of fractions far below 0.
std::vector<ColourSteps::Step> rampSteps();

// The same, ready to be looked up. As long as the ramp and the range stay the same they are found
// only once.
std::shared_ptr<const ColourSteps> rampLookup();

}  // namespace ModColor
