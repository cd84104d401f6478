#include "render/profileTicks.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;

// What rounding can add to a tick, in intervals: far more than single precision does over an
// axis of some ticks, far less than anybody can see.
constexpr double kNoise = 1e-4;

// The number that a reader sees when a single is printed: 0.1, not 0.10000000149.
double asPrinted(float value) { return util::leadingNumber(util::generalText(value)); }

// The text of a tick's place, unless the sum of the printed numbers has a clearly shorter one:
// -0.3 + 3 x 0.1 is stored as -7.450581E-09 and read as 0. Where the numbers are long themselves
// it is the sum of the printed ones that is off.
std::string shorter(const std::string& ofPlace, const std::string& ofPrinted) {
  return ofPrinted.size() + 2 < ofPlace.size() ? ofPrinted : ofPlace;
}

}  // namespace

std::vector<ValueTick> valueTicks(float minimum, float maximum, float interval) {
  std::vector<ValueTick> ticks;
  const double noise = kNoise * asDouble(interval);
  if (!(noise > 0.0)) return ticks;
  const double printedMinimum = asPrinted(minimum);
  const double printedInterval = asPrinted(interval);
  int16_t counter = 0;  // of the ticks so far
  for (;;) {
    const double exact = asDouble(minimum) + counter * asDouble(interval);
    if (!(exact <= asDouble(maximum) + noise)) return ticks;
    const int16_t next = util::addInteger(counter, 1);
    if (exact >= asDouble(maximum) - noise) {
      ticks.push_back({maximum, util::generalText(maximum)});
      return ticks;
    }
    const double printed = printedMinimum + counter * printedInterval;
    const float rounded = std::fabs(printed) < noise ? 0.0F : util::storeSingle(printed);
    const float position = util::storeSingle(exact);
    ticks.push_back({position, shorter(util::generalText(position), util::generalText(rounded))});
    counter = next;
  }
}

}  // namespace KelvaneMain
