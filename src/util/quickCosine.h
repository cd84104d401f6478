#pragma once

#include <optional>

namespace util {

// The double nearest to the cosine of an angle of at most 1.6 in magnitude, in a tenth of the time
// that quadruple precision takes. Nothing beyond, and in the rare case that 90 bits of the cosine
// do not tell which double is the nearest.
std::optional<double> quickCosine(double radians);

}  // namespace util
