#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace platform {

// The error of the call that has just failed.
inline std::error_code lastError() { return {errno, std::generic_category()}; }

// An open file, closed at the end of the scope. A negative number is none.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  // Closes it and tells what went wrong. An interrupted one is closed too.
  std::error_code close() {
    return ::close(std::exchange(number_, -1)) != 0 && errno != EINTR ? lastError()
                                                                      : std::error_code();
  }

 private:
  int number_;
};

}  // namespace platform
