#include "colorkey/cellColours.h"

#include <algorithm>
#include <cmath>
#include <queue>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "util/RuntimeError.h"

namespace ModColor {
namespace {

// Divisions that hold any value at all, by their low bounds. Those with a bound that is no
// number hold none.
std::vector<int32_t> byLowBound(int32_t count) {
  std::vector<int32_t> divisions;
  for (int32_t i = 1; i <= count; ++i) {
    if (ColorKey.low(i) < ColorKey.high(i)) divisions.push_back(i);
  }
  std::ranges::sort(divisions, {}, [](int32_t i) { return ColorKey.low(i); });
  return divisions;
}

std::vector<float> boundsOf(const std::vector<int32_t>& divisions) {
  std::vector<float> bounds;
  for (const int32_t i : divisions) {
    bounds.push_back(ColorKey.low(i));
    bounds.push_back(ColorKey.high(i));
  }
  std::ranges::sort(bounds);
  bounds.erase(std::unique(bounds.begin(), bounds.end()), bounds.end());
  return bounds;
}

}  // namespace

// Sweeps over the bounds with the divisions that are open there, the first in key order on top;
// one that has ended leaves when it comes to the top.
KeyLookup::KeyLookup() {
  const int32_t held = std::min({ColorKey.low.size(), ColorKey.high.size(), ColorKey.color.size()});
  listsTooShort_ = ColorKey.nDivision > held;
  const std::vector<int32_t> divisions = byLowBound(std::min(ColorKey.nDivision, held));
  auto next = divisions.begin();
  std::priority_queue<int32_t, std::vector<int32_t>, std::greater<>> open;
  for (const float bound : boundsOf(divisions)) {
    for (; next != divisions.end() && ColorKey.low(*next) <= bound; ++next) open.push(*next);
    while (!open.empty() && ColorKey.high(open.top()) <= bound) open.pop();
    stretches_.push_back({bound, !open.empty(), open.empty() ? 0 : ColorKey.color(open.top())});
  }
}

platform::Colour KeyLookup::operator()(float value) const {
  if (std::isnan(value)) return outside();
  const auto behind = std::ranges::upper_bound(stretches_, value, {}, &Stretch::from);
  if (behind == stretches_.begin() || !std::prev(behind)->covered) return outside();
  return std::prev(behind)->colour;
}

platform::Colour KeyLookup::outside() const {
  if (listsTooShort_) util::raise(util::kSubscript);
  return platform::basicPalette(15);
}

CellColours::CellColours() {
  if (bUseKey < 0) key_.emplace();
}

platform::Colour CellColours::operator()(float value) const {
  return key_ ? (*key_)(value) : RampColour(valueFraction(value));
}

}  // namespace ModColor
