#pragma once

#include <limits>

namespace support {

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr float kFloatNan = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kFloatInfinity = std::numeric_limits<float>::infinity();

}  // namespace support
