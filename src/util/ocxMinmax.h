#pragma once

#include <cstdint>

// Minimum and maximum as the whole system takes them. Of two equal values the second is
// returned; comparisons with NaN give Max2 its first and Min2 its second argument. Chains run
// from the left.
namespace ocxMinmax {

constexpr int32_t MaxLong(int32_t a, int32_t b) { return b < a ? a : b; }

constexpr float Max2(float a, float b) { return a <= b ? b : a; }
constexpr float Max3(float a, float b, float c) { return Max2(Max2(a, b), c); }
constexpr float Max4(float a, float b, float c, float d) { return Max2(Max3(a, b, c), d); }

constexpr float Min2(float a, float b) { return a < b ? a : b; }
constexpr float Min3(float a, float b, float c) { return Min2(Min2(a, b), c); }
constexpr float Min4(float a, float b, float c, float d) { return Min2(Min3(a, b, c), d); }

}  // namespace ocxMinmax
