#include "colorkey/keyRows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "util/RuntimeError.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

double finite(double value) {
  if (!std::isfinite(value)) util::raise(util::kOverflow);
  return value;
}

// Red, green and blue are the last, the middle and the first two of six hexadecimal digits.
std::array<int32_t, 3> componentsOf(platform::Colour colour) {
  return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF};
}

// The component of row k on the way from first to last.
class ComponentRamp {
 public:
  ComponentRamp(int32_t first, int32_t last, int32_t rows)
      : first_(first), step_(util::roundToInteger(static_cast<double>(last - first) / rows)) {}
  int32_t operator()(int32_t k) const {
    return static_cast<int32_t>(std::clamp<int64_t>(first_ + int64_t{k} * step_, 0, 255));
  }

 private:
  int32_t first_, step_;
};

}  // namespace

std::vector<RowRange> equalDivisions(double minimum, double maximum, int32_t divisions) {
  if (divisions < 1) util::raise(util::kDivisionByZero);
  const int16_t count = util::roundToInteger(divisions);
  const double step = finite(std::fabs(maximum - minimum) / count);
  std::vector<RowRange> ranges;
  ranges.reserve(static_cast<std::size_t>(count));
  for (int32_t k = 0; k < count; ++k) {
    ranges.push_back({finite(k * step + minimum), finite((k + 1) * step + minimum)});
  }
  return ranges;
}

std::vector<platform::Colour> colourRamp(platform::Colour first, platform::Colour last,
                                         int32_t rows) {
  if (rows < 1) util::raise(util::kDivisionByZero);
  const std::array<int32_t, 3> from = componentsOf(first), to = componentsOf(last);
  const ComponentRamp red(from[0], to[0], rows), green(from[1], to[1], rows),
      blue(from[2], to[2], rows);
  std::vector<platform::Colour> colours;
  colours.reserve(static_cast<std::size_t>(rows));
  for (int32_t k = 0; k < rows; ++k) colours.push_back(platform::rgb(red(k), green(k), blue(k)));
  return colours;
}

}  // namespace ModColor
