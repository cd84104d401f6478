#include "colorkey/rampSteps.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"

namespace ModColor {
namespace {

using Step = ColourSteps::Step;

constexpr float kLargest = std::numeric_limits<float>::max();

// Singles by their place in the order of all of them, so that they can be halved between.
using Place = int64_t;
Place placeOf(float value) {
  const auto bits = std::bit_cast<int32_t>(value);
  return bits >= 0 ? Place{bits} : -Place{bits & 0x7FFFFFFF};
}
float singleAt(Place place) {
  const auto bits = static_cast<uint32_t>(place >= 0 ? place : -place);
  const float magnitude = std::bit_cast<float>(bits);
  return place >= 0 ? magnitude : -magnitude;
}

// The first place in low..high from which on the rule holds; high when it holds nowhere before.
template <class Rule>
Place firstWhere(Place low, Place high, Rule holds) {
  while (low < high) {
    const Place middle = low + (high - low) / 2;
    if (holds(singleAt(middle))) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

// Where the bands and schemes of the ramp begin and end, in the fraction of the value range.
// Between two of these places every channel only rises or only falls.
std::vector<Place> bandLimits() {
  const auto directed = [](float t) { return rampFraction(t); };
  const Place lowest = placeOf(-kLargest), highest = placeOf(1.0F);
  std::vector<Place> limits = {lowest, highest + 1};
  const auto add = [&](auto isBeyond) {
    // The fraction may run either way.
    const bool atFirst = isBeyond(directed(-kLargest));
    limits.push_back(firstWhere(lowest, highest + 1, [&](float t) {
      return isBeyond(directed(t)) != atFirst;
    }));
  };
  add([](float u) { return u > 0.0F; });
  add([](float u) { return static_cast<double>(u) >= 1e-7; });
  add([](float u) { return u > 1.0F / 3.0F; });
  add([](float u) { return u > 2.0F / 3.0F; });
  add([](float u) { return u > 0.5F; });
  add([](float u) { return u > 1.0F; });
  std::ranges::sort(limits);
  return limits;
}

// Adds the steps behind low, up to high; both are in one band.
void addSteps(Place low, Place high, std::vector<Step>& steps) {
  const platform::Colour colour = RampColour(singleAt(high));
  if (RampColour(singleAt(low)) == colour) return;
  if (high - low == 1) {
    steps.push_back({singleAt(high), colour});
    return;
  }
  const Place middle = low + (high - low) / 2;
  addSteps(low, middle, steps);
  addSteps(middle, high, steps);
}

std::vector<Step> makeFractionSteps() {
  std::vector<Step> steps;
  const std::vector<Place> limits = bandLimits();
  for (std::size_t band = 0; band + 1 < limits.size(); ++band) {
    if (limits[band] == limits[band + 1]) continue;
    // At its lower end a band may go on with the colour of the one below.
    const platform::Colour colour = RampColour(singleAt(limits[band]));
    if (steps.empty() || steps.back().colour != colour) {
      steps.push_back({singleAt(limits[band]), colour});
    }
    addSteps(limits[band], limits[band + 1] - 1, steps);
  }
  steps.erase(steps.begin());  // at the lowest single of all
  return steps;
}

struct Ramp {
  int32_t scheme = bUseKey, direction = RampDirection;
  bool operator==(const Ramp&) const = default;
};

// They are the same for every data set, so that they are found once for each kind of ramp.
const std::vector<Step>& fractionSteps() {
  static Ramp known;
  static std::vector<Step> steps;
  if (const Ramp wanted; steps.empty() || known != wanted) {
    steps = makeFractionSteps();
    known = wanted;
  }
  return steps;
}

// The same as valueFraction, where that has a value, and monotone beyond.
float fractionOf(float value) {
  const double fraction =
      (static_cast<double>(value) - static_cast<double>(ValueMin)) / static_cast<double>(ValueSpan);
  return static_cast<float>(std::clamp(fraction, -static_cast<double>(kLargest), 1.0));
}

// The smallest value of at least that fraction, looked for near where it should be.
Place firstValue(float fraction) {
  const double expected = static_cast<double>(ValueMin) +
                          static_cast<double>(fraction) * static_cast<double>(ValueSpan);
  const double nearLargest = static_cast<double>(kLargest);
  const Place guess =
      placeOf(static_cast<float>(std::clamp(expected, -nearLargest, nearLargest)));
  const Place lowest = placeOf(-kLargest), highest = placeOf(kLargest);
  const auto reaches = [fraction](float value) { return fractionOf(value) >= fraction; };
  Place low = guess, high = guess;
  for (Place reach = 1; low > lowest && reaches(singleAt(low)); reach *= 2) {
    high = low;
    low = std::max(lowest, low - reach);
  }
  for (Place reach = 1; high < highest && !reaches(singleAt(high)); reach *= 2) {
    low = high;
    high = std::min(highest, high + reach);
  }
  return firstWhere(low, high, reaches);
}

}  // namespace

bool hasRampSteps() {
  return ValueSpan > 0.0F && std::isfinite(ValueSpan) && std::isfinite(ValueMin);
}

std::vector<Step> rampSteps() {
  std::vector<Step> steps;
  for (const Step& step : fractionSteps()) {
    const float value = singleAt(firstValue(step.from));
    if (fractionOf(value) < step.from) break;  // no value is so large
    // Where singles are scarce several steps meet, and the last of them counts.
    if (!steps.empty() && steps.back().from == value) steps.pop_back();
    steps.push_back({value, step.colour});
  }
  return steps;
}

std::shared_ptr<const ColourSteps> rampLookup() {
  struct Range {
    Ramp ramp;
    float lowest = ValueMin, span = ValueSpan;
    bool operator==(const Range&) const = default;
  };
  static Range known;
  static std::shared_ptr<const ColourSteps> lookup;
  if (const Range wanted; !lookup || known != wanted) {
    const platform::Colour below = RampColour(std::numeric_limits<float>::lowest());
    lookup = std::make_shared<const ColourSteps>(below, rampSteps());
    known = wanted;
  }
  return lookup;
}

}  // namespace ModColor
