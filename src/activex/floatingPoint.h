#pragma once

#include <cstdint>

namespace activex {

// The floating-point environment that the core is built for, for the extent of a call: nothing
// traps, results are rounded to nearest. Hosts come with traps for divisions by zero, or with
// other roundings, and get theirs back as they were.
class FloatingPointScope {
 public:
  FloatingPointScope() noexcept {
    constexpr uint16_t controlWord = 0x037F;
    constexpr uint32_t state = 0x1F80;
    __asm__ __volatile__("fnstcw %0" : "=m"(controlWord_));
    __asm__ __volatile__("stmxcsr %0" : "=m"(state_));
    // A trap that the host has pending must not strike here.
    __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(controlWord));
    __asm__ __volatile__("ldmxcsr %0" : : "m"(state));
  }
  ~FloatingPointScope() {
    // Nor one of ours there.
    __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(controlWord_));
    __asm__ __volatile__("ldmxcsr %0" : : "m"(state_));
  }
  FloatingPointScope(const FloatingPointScope&) = delete;
  FloatingPointScope& operator=(const FloatingPointScope&) = delete;

 private:
  uint16_t controlWord_ = 0;
  uint32_t state_ = 0;
};

}  // namespace activex
