#pragma once

#include <cstdint>

namespace util {

// Nearest integer, halves to the even neighbour. A value outside the type's range, or NaN, is
// run-time error 6.
int32_t roundToLong(double value);
int16_t roundToInteger(double value);

// Integer part toward zero, with the same range rule.
int32_t truncateToLong(double value);

// A double stored in a single. A finite or infinite value beyond the single range is error 6;
// NaN is stored as NaN.
float storeSingle(double value);

// A single in an expression, which is computed in double.
constexpr double asDouble(float value) { return static_cast<double>(value); }

// Sums and products of counters; leaving the 32-bit (16-bit) range is error 6.
int32_t addLong(int32_t a, int32_t b);
int32_t multiplyLong(int32_t a, int32_t b);
int16_t addInteger(int16_t a, int16_t b);

}  // namespace util
