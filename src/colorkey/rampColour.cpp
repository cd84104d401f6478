#include "colorkey/rampColour.h"

#include "colorkey/colorKey.h"
#include "util/rounding.h"

namespace ModColor {

int32_t RampDirection = 0;
float ValueMin = 0;
float ValueSpan = 0;

namespace {

// Channels before rounding; white unless a scheme says otherwise.
struct Channels {
  double r = 255, g = 255, b = 255;
};

// Near white through green, white through blue, white to red. The band limits are singles, the
// offsets and divisors doubles of these very digits, which decides the colours at the limits.
Channels threeBands(float fraction) {
  const double u = static_cast<double>(fraction);
  if (u < 1e-7) return {};
  if (fraction <= 1.0F / 3.0F) {
    const double fade = (1.0 - u / 0.33333333) * 245.0;
    return {fade, 245.0, fade};
  }
  if (fraction <= 2.0F / 3.0F) {
    const double fade = (1.0 - (u - 0.33333333) / 0.333333) * 245.0;
    return {fade, fade, 245.0};
  }
  const double fade = (1.0 - (u - 0.66666666) / 0.333333) * 245.0;
  return {245.0, fade, fade};
}

// White to a pure colour at one half, then to black: the strength of that colour and of the
// two others.
struct ToneFade {
  double pure, others;
};
ToneFade toneFade(double u) {
  if (u <= 0.5) return {255.0, (1.0 - 2.0 * u) * 255.0};
  return {(1.0 - u) * 510.0, 0.0};
}

Channels schemeChannels(int32_t scheme, float fraction) {
  const double u = static_cast<double>(fraction);
  const ToneFade tone = toneFade(u);
  const double grey = (1.0 - u) * 255.0;
  switch (scheme) {
    case 0:
      return threeBands(fraction);
    case 1:
      return {grey, grey, grey};
    case 2:
      return {tone.pure, tone.others, tone.others};
    case 3:
      return {tone.others, tone.pure, tone.others};
    case 4:
      return {tone.others, tone.others, tone.pure};
    default:
      return {};
  }
}

}  // namespace

float rampFraction(float t) {
  if (RampDirection == 0) return t;
  if (RampDirection == 1) return util::storeSingle(1.0 - static_cast<double>(t));
  return 0.0F;
}

platform::Colour RampColour(float t) {
  const float u = rampFraction(t);
  if (!(0.0F < u && u <= 1.0F)) return platform::basicPalette(15);
  const Channels channels = schemeChannels(bUseKey, u);
  return platform::rgb(util::roundToInteger(channels.r), util::roundToInteger(channels.g),
                       util::roundToInteger(channels.b));
}

float valueFraction(float value) {
  if (ValueSpan == 0.0F) return 0.0F;
  const double fraction =
      (static_cast<double>(value) - static_cast<double>(ValueMin)) / static_cast<double>(ValueSpan);
  return fraction > 1.0 ? 1.0F : util::storeSingle(fraction);
}

}  // namespace ModColor
