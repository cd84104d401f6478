#include "colorkey/cellColours.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <queue>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "colorkey/rampSteps.h"
#include "util/RuntimeError.h"

namespace ModColor {
namespace {

// From that many cells on a ramp's steps cost less than what they save.
constexpr std::size_t kManyCells = 4096;

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

KeyLookup::KeyLookup() {
  const int32_t held = std::min({ColorKey.low.size(), ColorKey.high.size(), ColorKey.color.size()});
  listsTooShort_ = ColorKey.nDivision > held;
  const int32_t count = std::min(ColorKey.nDivision, held);
  if (!addInOrder(count)) sweep(count);
  const platform::Colour white = platform::basicPalette(15);
  std::vector<ColourSteps::Step> steps;
  steps.reserve(stretches_.size());
  for (const Stretch& stretch : stretches_) {
    steps.push_back({stretch.from, stretch.covered ? stretch.colour : white});
  }
  steps_ = ColourSteps(white, steps);
}

// Keys mostly have their divisions one above the other. False when this one has not.
bool KeyLookup::addInOrder(int32_t count) {
  for (int32_t i = 1; i <= count; ++i) {
    const float low = ColorKey.low(i), high = ColorKey.high(i);
    if (!(low < high)) continue;
    if (!stretches_.empty() && !(stretches_.back().from <= low)) {
      stretches_.clear();
      return false;
    }
    // Where the one before has ended this one begins.
    if (!stretches_.empty() && stretches_.back().from == low) stretches_.pop_back();
    stretches_.push_back({low, true, ColorKey.color(i)});
    stretches_.push_back({high, false, 0});
  }
  return true;
}

// Sweeps over the bounds with the divisions that are open there, the first in key order on top;
// one that has ended leaves when it comes to the top.
void KeyLookup::sweep(int32_t count) {
  const std::vector<int32_t> divisions = byLowBound(count);
  auto next = divisions.begin();
  std::priority_queue<int32_t, std::vector<int32_t>, std::greater<>> open;
  for (const float bound : boundsOf(divisions)) {
    for (; next != divisions.end() && ColorKey.low(*next) <= bound; ++next) open.push(*next);
    while (!open.empty() && ColorKey.high(open.top()) <= bound) open.pop();
    stretches_.push_back({bound, !open.empty(), open.empty() ? 0 : ColorKey.color(open.top())});
  }
}

// For a key whose count promises more divisions than there are: what no division holds would
// be looked for among them.
platform::Colour KeyLookup::search(float value) const {
  const auto behind = std::ranges::upper_bound(stretches_, value, {}, &Stretch::from);
  if (std::isnan(value) || behind == stretches_.begin() || !std::prev(behind)->covered) {
    util::raise(util::kSubscript);
  }
  return std::prev(behind)->colour;
}

CellColours::CellColours(std::size_t cells) {
  if (bUseKey < 0) {
    key_.emplace();
  } else if (cells >= kManyCells && hasRampSteps()) {
    ramp_ = rampLookup();
  }
}

platform::Colour CellColours::rampColour(float value) { return RampColour(valueFraction(value)); }

void CellColours::lookUp(std::span<const float> values,
                         std::span<platform::Colour> colours) const {
  if (key_) {
    key_->lookUp(values, colours);
  } else if (ramp_) {
    ramp_->lookUp(values, colours);
  } else {
    std::ranges::transform(values, colours.begin(), rampColour);
  }
}

bool CellColours::mayFail(float lowest) const {
  if (key_) return key_->mayFail();
  if (ValueSpan == 0.0F) return false;
  if (!hasRampSteps()) return true;
  const double fraction = (static_cast<double>(lowest) - static_cast<double>(ValueMin)) /
                          static_cast<double>(ValueSpan);
  return !(fraction > static_cast<double>(std::numeric_limits<float>::lowest()));
}

}  // namespace ModColor
