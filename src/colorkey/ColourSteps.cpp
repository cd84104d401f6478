#include "colorkey/ColourSteps.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ModColor {
namespace {

// Enough for the steps of a ramp to be alone in their parts, and few enough for the cache.
constexpr std::size_t kPartsPerStep = 4;
constexpr std::size_t kMostParts = 65536;

}  // namespace

ColourSteps::ColourSteps(platform::Colour lowest, std::span<const Step> steps)
    : steps_(steps.begin(), steps.end()), colourBelow_(lowest) {
  std::size_t parts = 1;
  if (steps.size() > 1) {
    const float span = steps.back().from - steps.front().from;
    const std::size_t wanted = std::min(kMostParts, kPartsPerStep * steps.size());
    const float perUnit = static_cast<float>(wanted) / span;
    // Without a number for it there is one part, of all values.
    if (std::isfinite(span) && std::isfinite(perUnit) && perUnit > 0.0F) {
      lowest_ = steps.front().from;
      partsPerUnit_ = perUnit;
      parts = wanted;
    }
  }
  lastPart_ = static_cast<float>(parts - 1);
  firstStep_.reserve(parts + 1);
  for (std::size_t step = 0; step < steps.size(); ++step) {
    const auto its = static_cast<std::size_t>(part(steps[step].from));
    if (firstStep_.size() > its && firstStep_[its] != step) onePerPart_ = false;
    while (firstStep_.size() <= its) firstStep_.push_back(static_cast<uint32_t>(step));
  }
  firstStep_.resize(parts + 1, static_cast<uint32_t>(steps.size()));
  if (!onePerPart_) return;
  constexpr float kNever = std::numeric_limits<float>::quiet_NaN();
  parts_.reserve(parts + 1);
  for (std::size_t in = 0; in <= parts; ++in) {
    const std::size_t first = firstStep_[in];
    const platform::Colour below = first == 0 ? lowest : steps_[first - 1].colour;
    const bool hasStep = in < parts && firstStep_[in + 1] > first;
    parts_.push_back({hasStep ? steps_[first].from : kNever, below});
  }
}

platform::Colour ColourSteps::search(float value) const {
  const auto in = static_cast<std::size_t>(part(value));
  const auto first = steps_.begin() + static_cast<std::ptrdiff_t>(firstStep_[in]);
  const auto end = steps_.begin() + static_cast<std::ptrdiff_t>(firstStep_[in + 1]);
  // A NaN is below everything.
  const auto behind =
      std::partition_point(first, end, [=](const Step& step) { return step.from <= value; });
  return behind == steps_.begin() ? colourBelow_ : std::prev(behind)->colour;
}

void ColourSteps::lookUp(std::span<const float> values, std::span<platform::Colour> colours) const {
  if (!onePerPart_) {
    std::ranges::transform(values, colours.begin(), [this](float value) { return search(value); });
    return;
  }
  // The parts first, several at a time as the processor can.
  for (std::size_t n = 0; n < values.size(); ++n) colours[n] = part(values[n]);
#pragma GCC unroll 4
  for (std::size_t n = 0; n < values.size(); ++n) {
    colours[n] = colourIn(colours[n], values[n]);
  }
}

}  // namespace ModColor
