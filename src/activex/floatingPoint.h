#pragma once

#include <cstdint>

namespace activex {

// The floating-point environment that the core is built for, for the extent of a call: nothing
// traps, results are rounded to nearest. Hosts come with traps for divisions by zero, with other
// roundings and precisions, or with an exception that still waits to be raised; they get all of
// it back as it was, and nothing of ours.
class FloatingPointScope {
 public:
  FloatingPointScope() noexcept {
    constexpr uint16_t controlWord = 0x037F;
    constexpr uint32_t state = 0x1F80;
    // Neither instruction waits, so that what the host has pending does not strike here.
    __asm__ __volatile__("fnstenv %0" : "=m"(host_));
    __asm__ __volatile__("stmxcsr %0" : "=m"(hostState_));
    __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(controlWord));
    __asm__ __volatile__("ldmxcsr %0" : : "m"(state));
  }
  ~FloatingPointScope() {
    __asm__ __volatile__("fnclex\n\tfldenv %0" : : "m"(host_));
    __asm__ __volatile__("ldmxcsr %0" : : "m"(hostState_));
  }
  FloatingPointScope(const FloatingPointScope&) = delete;
  FloatingPointScope& operator=(const FloatingPointScope&) = delete;

 private:
  // The x87's control, status and tag words and where it was, as the processor lays them out.
  struct Environment {
    uint32_t words[7];
  };
  Environment host_ = {};
  uint32_t hostState_ = 0;
};

}  // namespace activex
