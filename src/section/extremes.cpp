#include "section/extremes.h"

#include <algorithm>

#include "section/sectionValues.h"

namespace KelvaneMain {
namespace {

// A zero that is an extreme has the sign of the last one; all others are below or above it.
float withSign(float extreme, std::span<const float> all) {
  if (extreme != 0) return extreme;
  const auto zero = std::find(all.rbegin(), all.rend(), 0.0F);
  return zero == all.rend() ? extreme : *zero;
}

}  // namespace

Extremes::Extremes() {
  most_.fill(kMissingValue);
  least_.fill(-kMissingValue);
}

void Extremes::take(std::span<const float> values) {
  while (!values.empty()) {
    const std::span<const float> few = values.first(std::min(values.size(), kLanes));
    values = values.subspan(few.size());
    // Not a number is above nothing, and so is what is missing.
    std::array<float, kLanes> low;
    for (std::size_t i = 0; i < few.size(); ++i) most_[i] = few[i] > most_[i] ? few[i] : most_[i];
    for (std::size_t i = 0; i < few.size(); ++i) {
      low[i] = few[i] > kMissingValue ? few[i] : -kMissingValue;
    }
    for (std::size_t i = 0; i < few.size(); ++i) {
      least_[i] = low[i] < least_[i] ? low[i] : least_[i];
    }
  }
}

float Extremes::maximum(std::span<const float> all) const {
  return withSign(*std::ranges::max_element(most_), all);
}

float Extremes::minimum(std::span<const float> all) const {
  return withSign(*std::ranges::min_element(least_), all);
}

}  // namespace KelvaneMain
