#pragma once

#include <stdexcept>
#include <string>

namespace util {

// A run-time error in the classic numbering. The routine that traps one reports it;
// a member that lets one out hands it to its host as that host's own error number.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number);
  int number() const noexcept { return number_; }

 private:
  int number_;
};

inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kObjectNotSet = 91;

[[noreturn]] void raise(int number);

// The number and description of the exception being handled; call it inside a catch block.
// std::bad_alloc and std::length_error count as error 7, any other exception as number 5
// with its own text.
struct ErrorInfo {
  int number = 0;
  std::string description;
};
ErrorInfo currentError();

}  // namespace util
